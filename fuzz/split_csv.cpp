// SPDX-License-Identifier: MIT
#include <algorithm>

#include "choices.hpp"
#include "text/white_space.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/utils/text_values.hpp"

/// A comma-separated text, and its items written again in both notations.
namespace tool_binding::fuzz {
namespace {

using Items = std::vector<Value>;

constexpr std::string_view pieces[] = {",", "\"",     "'",       "[",       "]",       "\\",  "a",
                                       " ", "\u3000", "\\u0041", "\\ud83d", "\\ude00", "\\n", "{"};

std::string make_list(Choices& choices) {
  if (choices.flag()) {
    return std::string(choices.all_bytes());
  }
  std::string list(choices.flag() ? "[" : "");
  const bool closed = choices.flag();
  while (!choices.empty()) {
    list += choices.one_of(pieces);
  }
  return list + (closed ? "]" : "");
}

/// Every item between `quote`s, each character of `escaped` with `escape` before it.
std::string written(const Items& items, char quote, std::string_view escaped, char escape) {
  std::string list;
  for (const Value& item : items) {
    list += list.empty() ? "" : " , ";
    list += quote;
    for (const char byte : item.text()) {
      list += escaped.find(byte) == std::string_view::npos ? "" : std::string(1, escape);
      list += byte;
    }
    list += quote;
  }
  return list;
}

Items cut_at_commas(std::string_view list) {
  Items items;
  while (!list.empty()) {
    const std::size_t comma = std::min(list.find(','), list.size());
    if (const std::string_view item = text::strip(list.substr(0, comma)); !item.empty()) {
      items.emplace_back(item);
    }
    list.remove_prefix(std::min(comma + 1, list.size()));
  }
  return items;
}

void check(Choices choices) {
  const std::string list = make_list(choices);
  Items items;
  try {
    items = split_csv(list);
  } catch (const ValueError&) {
    require(list.find_first_of("\"'[") != std::string::npos, "what has no quotes and brackets is taken", list);
    return;
  }
  require(std::all_of(items.begin(), items.end(), [](const Value& item) { return item.is_text(); }), "items are texts");
  require(split_csv(written(items, '"', "\"", '"')) == items, "items are read as people write them", list);
  require(split_csv("[" + written(items, '"', "\"\\", '\\') + "]") == items, "or as programs do", list);
  require(split_csv("[" + written(items, '\'', "'\\", '\\') + "]") == items, "with either quote", list);
  if (list.find_first_of("\"[") == std::string::npos) {
    require(items == cut_at_commas(list), "items stand between commas", list);
  }
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
