// SPDX-License-Identifier: MIT
#include "check/findings.hpp"

#include <algorithm>
#include <array>

namespace tool_binding {

namespace {

using Found = RegistryFinding::Kind;

struct KindRow {
  Found kind;
  bool is_error;
  std::string_view words;  ///< each "{}" stands for a piece
};

constexpr auto kinds = std::to_array<KindRow>({
    {Found::shape, true, "{}"},
    {Found::empty_name, true, "a name must not be empty"},
    {Found::repeated_name, true, "{} is declared already at {}"},
    {Found::synonym_of_name, true, "{} is declared as a name at {}"},
    {Found::repeated_synonym, true, "{} is a synonym already at {}"},
    {Found::type_word, true, "must be integer, number, boolean, string or array, not {}{}"},
    {Found::bound, true, "must be a number, not {}"},
    {Found::undeclared_action, true, "{} is no declared action{}"},
    {Found::undeclared_parameter, true, "{} is no declared parameter{}"},
    {Found::unlisted_parameter, true, "does not list {}, which the tool declares: list {}, or rest()"},
    {Found::argument_type, true, "{} is given as {}, and taken as {}: write {}"},
    {Found::null_argument, true, "{} is null where {} leaves it out: write {}, or declare a default"},
    {Found::argument_value, true, "{} can be {}, and {} takes only {}"},
    {Found::open_enumeration, true, "{} can be any text, and {} takes only {}: declare these as the values allowed"},
    {Found::no_enumerator, true, "{} may be sent, and {} takes only {}"},
    {Found::unoffered_item, true, "{} is no context item that the daemon offers{}"},
    {Found::item_type, true,
     "{} is offered as {}, and taken as {}: take what is offered, or offer it with bases<> of what is taken"},
    {Found::crossed_bounds, false, "{} is above the maximum {}"},
    {Found::idle_bound, false, "{} never acts: {}"},
    {Found::refused_default, false, "{} would be refused if it were sent: {}"},
    {Found::changed_default, false, "{} would {} if it were sent"},
    {Found::unmatched_value, false, "{} can never be matched: an argument that says it is {}"},
    {Found::shadowed_value, false, "{} can never be matched: it is read as {}, which stands earlier"},
    {Found::kept_name, false,
     "admission keeps {} for itself: the handler never gets what a request sends by that name"},
    {Found::unmatched_synonym, false, "{} can never be matched: white space around an action is ignored"},
    {Found::shadowed_synonym, false, "{} can never be matched: case is ignored, and it is read as the action {}"},
    {Found::keyword_without_taker, false, "takes neither {} nor any keyword"},
    {Found::idle_items_type, false, "{} never acts: items are taken as they come, but for 'string'"},
    {Found::unusual_name, false, "{} is refused by common clients: they take 1 to 64 of A-Z, a-z, 0-9, _ and -"},
    {Found::unusual_size, false, "{} {} are refused by common clients: they take no more than {}"},
});

const KindRow& row_of(Found kind) noexcept {
  return *std::find_if(kinds.begin(), kinds.end(), [&](const KindRow& row) { return row.kind == kind; });
}

}  // namespace

bool is_error(Found kind) noexcept { return row_of(kind).is_error; }

void RegistryFindings::add(Found kind, std::string place, std::initializer_list<std::string_view> pieces) {
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
