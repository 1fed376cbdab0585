// SPDX-License-Identifier: MIT
#include "types/text_values.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <utility>

#include "text/code_points.hpp"
#include "text/lower_case.hpp"
#include "text/white_space.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/utils/text_values.hpp"

namespace tool_binding::types {
namespace {

struct TruthWord {
  std::string_view spelling;
  bool value;
};

constexpr TruthWord truth_words[] = {
    {"true", true},   {"yes", true}, {"on", true},   {"1", true},  {"t", true},  {"y", true},
    {"false", false}, {"no", false}, {"off", false}, {"0", false}, {"f", false}, {"n", false},
};

std::optional<bool> value_of(std::string_view word) noexcept {
  for (const TruthWord& row : truth_words) {
    if (word == row.spelling) {
      return row.value;
    }
  }
  return std::nullopt;
}

struct Escape {
  char letter;
  char meaning;
};

constexpr Escape escapes[] = {
    {'"', '"'}, {'\'', '\''}, {'\\', '\\'}, {'/', '/'}, {'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'},
};

/// How a list is written: by people, or by programs.
struct Notation {
  std::string_view quotes;
  std::string_view refused_beginnings;
  bool has_escapes;
};

constexpr Notation by_people = {"\"", "", false};
constexpr Notation by_programs = {"\"'", "[{", true};

constexpr bool is_high_surrogate(char32_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool is_low_surrogate(char32_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Takes the four hexadecimal digits of a code unit from the start of `rest`.
std::optional<char32_t> take_code_unit(std::string_view& rest) noexcept {
  constexpr std::size_t size = 4;
  std::uint16_t unit = 0;
  if (rest.size() < size || std::from_chars(rest.data(), rest.data() + size, unit, 16).ptr != rest.data() + size) {
    return std::nullopt;
  }
  rest.remove_prefix(size);
  return unit;
}

/// Takes what follows "\u" from the start of `rest`: one code unit, or two that are a surrogate pair.
bool take_unicode_escape(std::string_view& rest, std::string& item) {
  const std::optional<char32_t> unit = take_code_unit(rest);
  if (!unit || is_low_surrogate(*unit)) {
    return false;
  }
  if (!is_high_surrogate(*unit)) {
    text::append_code_point(item, *unit);
    return true;
  }
  if (!rest.starts_with("\\u")) {
    return false;
  }
  rest.remove_prefix(2);
  const std::optional<char32_t> low = take_code_unit(rest);
  if (!low || !is_low_surrogate(*low)) {
    return false;
  }
  text::append_code_point(item, 0x10000 + ((*unit - 0xD800) << 10U) + (*low - 0xDC00));
  return true;
}

/// Takes what follows a backslash from the start of `rest` and appends its meaning to `item`.
bool take_escape(std::string_view& rest, std::string& item) {
  if (rest.empty()) {
    return false;
  }
  const char letter = rest.front();
  rest.remove_prefix(1);
  if (letter == 'u') {
    return take_unicode_escape(rest, item);
  }
  const auto* const escape =
      std::find_if(std::begin(escapes), std::end(escapes), [&](const Escape& row) { return row.letter == letter; });
  if (escape == std::end(escapes)) {
    return false;
  }
  item += escape->meaning;
  return true;
}

/// Takes a quoted item, its quotes included, from the start of `rest`: its content, nothing where it is never closed or
/// holds an unknown escape.
std::optional<std::string> take_quoted(std::string_view& rest, const Notation& notation) {
  const char quote = rest.front();
  const char marks[] = {quote, notation.has_escapes ? '\\' : quote};
  rest.remove_prefix(1);
  std::string item;
  for (;;) {
    const std::size_t offset = rest.find_first_of({marks, sizeof marks});
    if (offset == std::string_view::npos) {
      return std::nullopt;
    }
    const char mark = rest[offset];
    item += rest.substr(0, offset);
    rest.remove_prefix(offset + 1);
    if (mark != quote) {
      if (!take_escape(rest, item)) {
        return std::nullopt;
      }
    } else if (!notation.has_escapes && rest.starts_with(quote)) {
      item += quote;
      rest.remove_prefix(1);
    } else {
      return item;
    }
  }
}

/// The items of a list as they are read. As many as most lists have are kept on the stack until the list is made of
/// them.
class Items {
 public:
  void add(std::string_view item) {
    if (count_ < few_.size()) {
      few_[count_++] = item;
      return;
    }
    if (many_.empty()) {
      many_.assign(std::make_move_iterator(few_.begin()), std::make_move_iterator(few_.end()));
    }
    many_.emplace_back(item);
  }

  [[nodiscard]] std::span<Value> all() noexcept { return many_.empty() ? std::span(few_).first(count_) : many_; }

 private:
  std::array<Value, 8> few_;
  std::size_t count_ = 0;
  std::vector<Value> many_;
};

/// Takes the item at the start of `rest`, without the comma after it, and adds it to `items` unless it is empty.
bool take_item(std::string_view& rest, const Notation& notation, Items& items) {
  rest = text::strip_start(rest);
  if (!rest.empty() && notation.quotes.find(rest.front()) != std::string_view::npos) {
    const std::optional<std::string> item = take_quoted(rest, notation);
    if (!item) {
      return false;
    }
    items.add(*item);
    rest = text::strip_start(rest);
    return rest.empty() || rest.front() == ',';
  }
  const std::size_t end = std::min(rest.find(','), rest.size());
  const std::string_view item = text::strip(rest.substr(0, end));
  if (!item.empty()) {
    if (notation.refused_beginnings.find(item.front()) != std::string_view::npos) {
      return false;
    }
    items.add(item);
  }
  rest.remove_prefix(end);
  return true;
}

/// Whether `rest` is a list in that notation, which has then been added to `items`.
bool take_items(std::string_view rest, const Notation& notation, Items& items) {
  if (text::is_blank(rest)) {
    return true;
  }
  for (;;) {
    if (!take_item(rest, notation, items)) {
      return false;
    }
    if (rest.empty()) {
      return true;
    }
    rest.remove_prefix(1);
  }
}

bool take_list(std::string_view text, Items& items) {
  const std::string_view list = text::strip(text);
  const bool bracketed = list.starts_with('[') && list.ends_with(']');
  return bracketed ? take_items(list.substr(1, list.size() - 2), by_programs, items)
                   : take_items(list, by_people, items);
}

}  // namespace

std::optional<bool> read_bool(std::string_view text) {
  const std::string_view word = text::strip(text);
  const std::optional<bool> value = value_of(word);
  return value ? value : value_of(text::lower_case(word));
}

Value read_csv(std::string_view text) {
  Items items;
  return take_list(text, items) ? Value::list_of_moved(items.all()) : Value();
}

}  // namespace tool_binding::types

namespace tool_binding {

bool is_blank(std::string_view text) noexcept { return text::is_blank(text); }

bool parse_bool(std::string_view text) {
  const std::optional<bool> value = types::read_bool(text);
  if (!value) {
    throw ValueError("the text is not a boolean: send true or false");
  }
  return *value;
}

std::vector<Value> split_csv(std::string_view text) {
  types::Items items;
  if (!types::take_list(text, items)) {
    throw ValueError("the text is not a list: a quoted or nested item is not closed or cannot be read");
  }
  const std::span<Value> all = items.all();
  return {std::make_move_iterator(all.begin()), std::make_move_iterator(all.end())};
}

}  // namespace tool_binding
