// SPDX-License-Identifier: MIT
#include "page.hpp"

#include "tool_binding/json/writer.hpp"

namespace tool_binding::cli {

namespace {

constexpr std::size_t widest_line = 120;
constexpr std::size_t indent_step = 2;

void append(std::string& page, const Value& value, std::size_t indent);

/// Begins the line of a member, which is the first or follows another.
void begin_line(std::string& page, bool& is_first, std::size_t indent) {
  page.append(is_first ? "\n" : ",\n").append(indent, ' ');
  is_first = false;
}

void append_list(std::string& page, const Value& list, std::size_t indent) {
  bool is_first = true;
  page.append("[");
  for (const Value& item : list.list()) {
    begin_line(page, is_first, indent + indent_step);
    append(page, item, indent + indent_step);
  }
  page.append("\n").append(indent, ' ').append("]");
}

void append_object(std::string& page, const Value& object, std::size_t indent) {
  bool is_first = true;
  page.append("{");
  for (const auto& [name, value] : object.mapping()) {
    begin_line(page, is_first, indent + indent_step);
    page += json::write(name);
    page.append(": ");
    append(page, value, indent + indent_step);
  }
  page.append("\n").append(indent, ' ').append("}");
}

void append(std::string& page, const Value& value, std::size_t indent) {
  const std::string line = json::write(value);
  const std::size_t column = page.size() - (page.rfind('\n') + 1);
  if (column + line.size() + 1 <= widest_line || !(value.is_list() || value.is_mapping())) {
    page.append(line);
  } else if (value.is_list()) {
    append_list(page, value, indent);
  } else {
    append_object(page, value, indent);
  }
}

}  // namespace

std::string page_of(const Value& value) {
  std::string page;
  append(page, value, 0);
  return page.append("\n");
}

}  // namespace tool_binding::cli
