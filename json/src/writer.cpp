// SPDX-License-Identifier: MIT
#include "tool_binding/json/writer.hpp"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "utf8.hpp"

namespace tool_binding::json {

namespace {

/// Whether a byte stands in a JSON text as it is: printable ASCII but for the quote and the backslash, and U+007F.
constexpr std::array<bool, 256> made_plain_bytes() {
  std::array<bool, 256> plain{};
  for (std::size_t byte = 0x20; byte < 0x80; ++byte) {
    plain[byte] = byte != '"' && byte != '\\';
  }
  return plain;
}
constexpr std::array<bool, 256> plain_bytes = made_plain_bytes();

constexpr std::array<std::pair<char, std::string_view>, 7> short_escapes{
    {{'"', "\\\""}, {'\\', "\\\\"}, {'\b', "\\b"}, {'\f', "\\f"}, {'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}}};

void append_code_unit(std::string& out, unsigned unit) {
  constexpr std::string_view digits = "0123456789abcdef";
  out += "\\u";
  for (const unsigned shift : {12U, 8U, 4U, 0U}) {
    out += digits[(unit >> shift) & 0xFU];
  }
}

void append_escaped(std::string& out, char byte) {
  for (const auto& [meaning, escape] : short_escapes) {
    if (meaning == byte) {
      out += escape;
      return;
    }
  }
  append_code_unit(out, static_cast<unsigned char>(byte));
}

/// Appends what `text` begins with, a byte that is not plain, and returns how many bytes that was.
std::size_t append_first(std::string& out, std::string_view text) {
  const auto unit_bits = [&](std::size_t place) { return static_cast<unsigned char>(text[place]) & 0x3FU; };
  if (static_cast<unsigned char>(text.front()) < 0x80) {
    append_escaped(out, text.front());
    return 1;
  }
  if (const std::size_t size = sequence_size(text); size != 0) {
    out.append(text.substr(0, size));
    return size;
  }
  if (begins_with_surrogate(text)) {
    append_code_unit(out, 0xD000U | (unit_bits(1) << 6U) | unit_bits(2));
    return 3;
  }
  append_code_unit(out, 0xDC00U + static_cast<unsigned char>(text.front()));
  return 1;
}

void append_text(std::string& out, std::string_view text) {
  out += '"';
  while (!text.empty()) {
    std::size_t plain = 0;
    while (plain < text.size() && plain_bytes[static_cast<unsigned char>(text[plain])]) {
      ++plain;
    }
    out.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (!text.empty()) {
      text.remove_prefix(append_first(out, text));
    }
  }
  out += '"';
}

void append_floating(std::string& out, const Value& value) {
  const double number = value.floating();
  if (std::isnan(number)) {
    out += "NaN";
  } else if (std::isinf(number)) {
    out += number < 0 ? "-Infinity" : "Infinity";
  } else {
    out += plain_form(value).view();
  }
}

/// Writes a value, its containers on a stack of their own.
class Writing {
 public:
  explicit Writing(std::string& out) : out_(out) {}

  void run(const Value& value) {
    append(value);
    while (!open_.empty()) {
      Open& container = open_.back();
      if (container.next == size_of(container)) {
        out_ += container.value->is_list() ? ']' : '}';
        open_.pop_back();
      } else {
        append_item(container);
      }
    }
  }

 private:
  struct Open {
    const Value* value;
    std::size_t next;
  };

  static std::size_t size_of(const Open& container) {
    return container.value->is_list() ? container.value->list().size() : container.value->mapping().size();
  }

  void append_item(Open& container) {
    if (container.next != 0) {
      out_ += ", ";
    }
    const std::size_t place = container.next++;
    if (container.value->is_list()) {
      return append(container.value->list()[place]);
    }
    const auto& entry = container.value->mapping()[place];
    append_text(out_, entry.name);
    out_ += ": ";
    append(entry.value);
  }

  /// Appends a scalar; a container is opened, and may move the stack.
  void append(const Value& value) {
    switch (value.kind()) {
      case Kind::null:
        out_ += "null";
        break;
      case Kind::boolean:
        out_ += value.boolean() ? "true" : "false";
        break;
      case Kind::integer:
        value.integer().append_to(out_);
        break;
      case Kind::floating:
        append_floating(out_, value);
        break;
      case Kind::text:
        append_text(out_, value.text());
        break;
      case Kind::list:
      case Kind::mapping:
        out_ += value.is_list() ? '[' : '{';
        open_.push_back({&value, 0});
        break;
    }
  }

  std::string& out_;
  std::vector<Open> open_;
};

}  // namespace

std::string write(const Value& value) {
  std::string out;
  write_to(out, value);
  return out;
}

void write_to(std::string& out, const Value& value) { Writing(out).run(value); }

}  // namespace tool_binding::json
