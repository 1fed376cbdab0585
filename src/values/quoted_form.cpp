// SPDX-License-Identifier: MIT
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
  constexpr std::size_t longest = 20;
  out.append_written(longest, [&](char* room) { return std::to_chars(room, room + longest, *small).ptr; });
}

/// Writes a value that holds no others; returns false for one that does, of which nothing is written.
bool append_single(TextBuilder& out, const Value& value) {
  switch (value.kind()) {
    case Kind::null:
      out += "None";
      return true;
    case Kind::boolean:
      out += value.boolean() ? "True" : "False";
      return true;
    case Kind::integer:
      append_integer(out, value);
      return true;
    case Kind::floating:
      append_floating(out, value.floating());
      return true;
    case Kind::text:
      append_quoted_text(out, value.text());
      return true;
    default:
      return false;
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

void append_container(TextBuilder& out, const Value& outermost) {
  std::vector<Level> levels;
  const auto open = [&](const Value& container) {
    out += container.is_list() ? '[' : '{';
    levels.push_back({&container, 0});
  };
  open(outermost);
  while (!levels.empty()) {
    Level& innermost = levels.back();
    if (innermost.next == size_of(*innermost.container)) {
      out += innermost.container->is_list() ? ']' : '}';
      levels.pop_back();
    } else if (const Value& item = next_item(out, innermost); !append_single(out, item)) {
      open(item);
    }
  }
}

}  // namespace

std::string quoted_form(const Value& value) {
  TextBuilder form;
  append_quoted_form(form, value);
  return std::string(form.view());
}

void append_quoted_form(TextBuilder& out, const Value& value) {
  if (!append_single(out, value)) {
    append_container(out, value);
  }
}

}  // namespace tool_binding
