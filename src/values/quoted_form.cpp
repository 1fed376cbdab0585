// SPDX-License-Identifier: MIT
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "values/forms.hpp"

namespace tool_binding {
namespace {

/// A list or mapping that is being written, and the index of its next item.
struct Level {
  const Value* container;
  std::size_t next;
};

std::size_t size_of(const Value& container) {
  return container.is_list() ? container.list().size() : container.mapping().size();
}

void append_integer(TextBuilder& out, const Value& value) {
  const std::optional<std::int64_t> small = value.to_int64();
  if (!small) {
    out += value.integer().to_string();
    return;
  }
  std::array<char, 20> digits;
  out.append({digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), *small).ptr});
}

/// Writes a value that holds no others; of one that does, only the bracket that opens it.
void append_or_open(TextBuilder& out, const Value& value, std::vector<Level>& levels) {
  switch (value.kind()) {
    case Kind::null:
      out += "None";
      break;
    case Kind::boolean:
      out += value.boolean() ? "True" : "False";
      break;
    case Kind::integer:
      append_integer(out, value);
      break;
    case Kind::floating:
      append_floating(out, value.floating());
      break;
    case Kind::text:
      append_quoted_text(out, value.text());
      break;
    case Kind::list:
    case Kind::mapping:
      out += value.is_list() ? '[' : '{';
      levels.push_back({&value, 0});
      break;
  }
}

/// The next item of the innermost level, after its key has been written where it has one.
const Value& next_item(TextBuilder& out, Level& level) {
  const std::size_t index = level.next++;
  if (index != 0) {
    out += ", ";
  }
  if (level.container->is_list()) {
    return level.container->list()[index];
  }
  const ArgumentMap::Entry& entry = level.container->mapping()[index];
  append_quoted_text(out, entry.name);
  out += ": ";
  return entry.value;
}

}  // namespace

std::string quoted_form(const Value& value) {
  TextBuilder form;
  append_quoted_form(form, value);
  return std::string(form.view());
}

void append_quoted_form(TextBuilder& out, const Value& value) {
  std::vector<Level> levels;
  append_or_open(out, value, levels);
  while (!levels.empty()) {
    Level& innermost = levels.back();
    if (innermost.next < size_of(*innermost.container)) {
      append_or_open(out, next_item(out, innermost), levels);
    } else {
      out += innermost.container->is_list() ? ']' : '}';
      levels.pop_back();
    }
  }
}

}  // namespace tool_binding
