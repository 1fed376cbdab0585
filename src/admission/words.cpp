// SPDX-License-Identifier: MIT
#include "admission/words.hpp"

#include <array>
#include <cstddef>

#include "compile/compiled_tool.hpp"
#include "values/forms.hpp"
#include "values/joined.hpp"

namespace tool_binding {

namespace {

using Found = Finding::Kind;

/// What fills the gaps of the words.
enum class Gap : std::uint8_t {
  none,
  tool,
  argument,
  parameter,
  type,
  each,
  values,
  sent,
  sent_plain,
  read,
  read_text,
  used,
  used_plain,
  unknown_action,
  action_names,
  action_proposal,
  proposal,
  taken,
  of_action,
};

struct GapName {
  std::string_view name;
  Gap gap;
};

constexpr std::array<GapName, 18> gap_names = {{{"tool", Gap::tool},
                                                {"argument", Gap::argument},
                                                {"parameter", Gap::parameter},
                                                {"type", Gap::type},
                                                {"each", Gap::each},
                                                {"values", Gap::values},
                                                {"sent", Gap::sent},
                                                {"sent_plain", Gap::sent_plain},
                                                {"read", Gap::read},
                                                {"read_text", Gap::read_text},
                                                {"used", Gap::used},
                                                {"used_plain", Gap::used_plain},
                                                {"unknown_action", Gap::unknown_action},
                                                {"action_names", Gap::action_names},
                                                {"action_proposal", Gap::action_proposal},
                                                {"proposal", Gap::proposal},
                                                {"taken", Gap::taken},
                                                {"of_action", Gap::of_action}}};

/// Words, and the gap that follows them. A block of one size is copied without a loop, and words are half of a message.
struct Piece {
  std::array<char, 32> words = {};
  std::size_t size = 0;
  Gap gap = Gap::none;

  consteval void set_words(std::string_view text) {
    size = text.copy(words.data(), text.size() <= words.size() ? text.size() : throw "words longer than their block");
  }
};

/// A message's words, taken apart when the layer is compiled. An unknown gap does not compile.
struct Template {
  std::array<Piece, 6> pieces = {};

  consteval Template(const char* text) {  // NOLINT(google-explicit-constructor)
    std::string_view rest = text;
    for (Piece& piece : pieces) {
      const std::size_t open = rest.find('{');
      piece.set_words(rest.substr(0, open));
      if (open == std::string_view::npos) {
        return;
      }
      const std::size_t close = rest.find('}', open);
      piece.gap = gap_of(rest.substr(open + 1, close - open - 1));
      rest.remove_prefix(close + 1);
    }
    throw "more gaps than pieces";
  }

  static consteval Gap gap_of(std::string_view name) {
    for (const GapName& row : gap_names) {
      if (row.name == name) {
        return row.gap;
      }
    }
    throw "no gap has that name";
  }
};

struct KindRow {
  Found kind;
  std::string_view word;
  Template words;
};

/// The words of all findings, in the order of their kinds.
constexpr std::array<KindRow, 12> kind_rows = {{
    {Found::synonym_read, "synonym_read", "'{argument}' was read as '{parameter}'"},
    {Found::synonym_left_out, "synonym_left_out", "'{argument}' was left out: '{parameter}' was given too"},
    {Found::action_synonym_read, "action_synonym_read", "the action '{sent_plain}' was read as '{used_plain}'"},
    {Found::below_minimum, "below_minimum", "'{parameter}' {read} is below the minimum: {used} was used"},
    {Found::above_maximum, "above_maximum", "'{parameter}' {read} is above the maximum: {used} was used"},
    {Found::unknown_parameter, "unknown_parameter", "Unknown parameter '{argument}' for {tool}.{proposal}{taken}"},
    {Found::unknown_action, "unknown_action", "{unknown_action}{action_proposal}"},
    {Found::unexpected_action, "unexpected_action", "{tool} takes no 'action'"},
    {Found::missing_action, "missing_action", "{tool} needs an 'action': one of {action_names}"},
    {Found::wrong_type, "wrong_type", "Parameter '{parameter}' of {tool} must be {type}, not {sent}"},
    {Found::unlisted_value, "unlisted_value",
     "Parameter '{parameter}' of {tool} must{each} be one of: {values}; not {read_text}"},
    {Found::missing_parameter, "missing_parameter", "{tool}{of_action} needs '{parameter}'"},
}};

constexpr bool are_in_order() {
  for (std::size_t place = 0; place < kind_rows.size(); ++place) {
    if (kind_rows[place].kind != static_cast<Found>(place)) {
      return false;
    }
  }
  return true;
}
static_assert(are_in_order());

const KindRow& row_of(Found kind) noexcept { return kind_rows[static_cast<std::size_t>(kind)]; }

void append_proposal(TextBuilder& out, std::string_view before, const Text& proposal) {
  if (!proposal.empty()) {
    out.append(before).append(proposal).append("'?");
  }
}

void append_of_action(TextBuilder& out, const Text& action) {
  if (!action.empty()) {
    out.append(" '").append(action).append("'");
  }
}

void fill(TextBuilder& out, Gap gap, const Finding& finding) {
  const detail::CompiledTool& tool = detail::compiled(*finding.tool);
  switch (gap) {
    case Gap::none:
      return;
    case Gap::tool:
      out.append(tool.declared.name);
      return;
    case Gap::argument:
      out.append(finding.argument);
      return;
    case Gap::parameter:
      out.append(finding.parameter->name);
      return;
    case Gap::type:
      out.append(type_row(finding.parameter->type)->words);
      return;
    case Gap::each:
      out.append(type_row(finding.parameter->type)->type == TypeWord::array ? " each" : "");
      return;
    case Gap::values:
      return append_joined(out, finding.parameter->enum_, ", ");
    case Gap::sent:
      return append_quoted_form(out, finding.sent);
    case Gap::sent_plain:
      return append_plain_form(out, finding.sent);
    case Gap::read:
      return append_quoted_form(out, finding.read);
    case Gap::read_text:
      return append_quoted_text(out, plain_form(finding.read));
    case Gap::used:
      return append_quoted_form(out, finding.used);
    case Gap::used_plain:
      return append_plain_form(out, finding.used);
    case Gap::unknown_action:
      return append_unknown_action(out, tool, finding.sent);
    case Gap::action_names:
      return append_joined(out, tool.action_names, ", ");
    case Gap::action_proposal:
      return append_proposal(out, ". Did you mean '", finding.proposal);
    case Gap::proposal:
      return append_proposal(out, " Did you mean '", finding.proposal);
    case Gap::taken:
      out.append(tool.taken);
      return;
    case Gap::of_action:
      return append_of_action(out, finding.action);
  }
}

}  // namespace

void append_message(TextBuilder& out, const Finding& finding) {
  for (const Piece& piece : row_of(finding.kind).words.pieces) {
    out.append(piece.words, piece.size);
    if (piece.gap == Gap::none) {
      return;
    }
    fill(out, piece.gap, finding);
  }
}

Text joined_problems(std::span<const Finding> findings) {
  TextBuilder joined;
  for (const Finding& finding : findings) {
    if (!is_problem(finding.kind)) {
      continue;
    }
    if (!joined.empty()) {
      joined.append("; ");
    }
    append_message(joined, finding);
  }
  return joined.view();
}

std::span<const Finding> Verdict::findings() const& noexcept { return findings_; }

std::vector<std::string> Verdict::messages(bool of_problems) const {
  std::vector<std::string> messages;
  messages.reserve(findings_.size());
  for (const Finding& finding : findings_) {
    if (is_problem(finding.kind) == of_problems) {
      messages.push_back(finding.message());
    }
  }
  return messages;
}

Text Verdict::refusal() const { return joined_problems(findings_); }

std::string_view word_of(Finding::Kind kind) noexcept { return row_of(kind).word; }

std::string Finding::message() const {
  TextBuilder message;
  append_message(message, *this);
  return std::string(message.view());
}

}  // namespace tool_binding
