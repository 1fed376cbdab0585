// SPDX-License-Identifier: MIT
#include "check/findings.hpp"

#include <algorithm>
#include <array>

namespace tool_binding {

namespace {

using Fault = RegistryFinding::Kind;

struct FaultRow {
  Fault kind;
  bool is_error;
  std::string_view words;  ///< each "{}" stands for a piece
};

constexpr auto fault_rows = std::to_array<FaultRow>({
    {Fault::shape, true, "{}"},
    {Fault::empty_name, true, "a name must not be empty"},
    {Fault::repeated_name, true, "{} is already declared at {}"},
    {Fault::synonym_of_name, true, "{} is declared as a name at {}"},
    {Fault::repeated_synonym, true, "{} is already a synonym at {}"},
    {Fault::type_word, true, "must be integer, number, boolean, string or array, not {}{}"},
    {Fault::bound, true, "must be a number, not {}"},
    {Fault::undeclared_action, true, "{} is not a declared action{}"},
    {Fault::undeclared_parameter, true, "{} is not a declared parameter{}"},
    {Fault::unlisted_parameter, true, "does not list {}, which the tool declares: list {}, or rest()"},
    {Fault::argument_type, true, "{} is given as {} but taken as {}: write {}"},
    {Fault::null_argument, true, "{} is null where {} leaves it out: write {}, or declare a default"},
    {Fault::argument_value, true, "{} can be {}, but {} takes only {}"},
    {Fault::open_enumeration, true, "{} can be any text, but {} takes only {}: declare these as the values allowed"},
    {Fault::no_enumerator, true, "{} may be sent, but {} takes only {}"},
    {Fault::unoffered_item, true, "{} is not a context item that the daemon offers{}"},
    {Fault::item_type, true,
     "{} is offered as {} but taken as {}: take what is offered, or offer it with bases<> of what is taken"},
    {Fault::crossed_bounds, false, "{} is above the maximum {}"},
    {Fault::idle_bound, false, "{} has no effect: {}"},
    {Fault::refused_default, false, "{} would be refused if it were sent: {}"},
    {Fault::changed_default, false, "{} would {} if it were sent"},
    {Fault::unmatched_value, false, "{} can never be matched: an argument with this text is {}"},
    {Fault::shadowed_value, false, "{} can never be matched: it is read as {}, which comes first"},
    {Fault::kept_name, false,
     "{} is reserved by admission: the handler never gets what a request sends under that name"},
    {Fault::unmatched_synonym, false, "{} can never be matched: white space around an action is ignored"},
    {Fault::shadowed_synonym, false, "{} can never be matched: case is ignored, and it is read as the action {}"},
    {Fault::keyword_without_taker, false, "takes neither {} nor arbitrary keywords"},
    {Fault::idle_items_type, false, "{} has no effect: items are converted only for 'string'"},
    {Fault::unusual_name, false,
     "{} is refused by common clients: they accept 1 to 64 characters from A-Z, a-z, 0-9, _ and -"},
    {Fault::unusual_size, false, "{} {} are too many for common clients: they accept at most {}"},
});

const FaultRow& row_of(Fault kind) noexcept {
  return *std::find_if(fault_rows.begin(), fault_rows.end(), [&](const FaultRow& row) { return row.kind == kind; });
}

}  // namespace

bool is_error(Fault kind) noexcept { return row_of(kind).is_error; }

void RegistryFindings::add(Fault kind, std::string place, std::initializer_list<std::string_view> pieces) {
  constexpr std::string_view gap = "{}";
  std::string words;
  std::string_view rest = row_of(kind).words;
  for (const std::string_view piece : pieces) {
    const std::size_t at = rest.find(gap);
    words.append(rest.substr(0, at)).append(piece);
    rest.remove_prefix(at + gap.size());
  }
  all_.push_back({kind, std::move(place), words.append(rest)});
}

}  // namespace tool_binding
