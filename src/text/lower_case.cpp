// SPDX-License-Identifier: MIT
#include "text/lower_case.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "text/code_points.hpp"
#include "text/unicode.hpp"

namespace tool_binding::text {
namespace {

constexpr char32_t capital_sigma = U'\u03A3';
constexpr char32_t small_sigma = U'\u03C3';
constexpr char32_t final_small_sigma = U'\u03C2';

constexpr bool is_ascii_upper(char byte) noexcept { return byte >= 'A' && byte <= 'Z'; }

constexpr char ascii_lower(char byte) noexcept { return is_ascii_upper(byte) ? static_cast<char>(byte | 0x20) : byte; }

/// Whether `text` ends with a cased letter and then nothing but case-ignorable code points. A capital sigma is cased: a
/// look back from one ends at the one before, a look ahead at the next, so that no part of a text is looked at often.
bool ends_with_cased(std::string_view text) noexcept {
  while (!text.empty()) {
    const CodePoint last = last_code_point(text);
    if (is_cased(last.value) || !is_case_ignorable(last.value)) {
      return is_cased(last.value);
    }
    text.remove_suffix(last.size);
  }
  return false;
}

/// Whether `text` begins with nothing but case-ignorable code points and then a cased letter.
bool begins_with_cased(std::string_view text) noexcept {
  while (!text.empty()) {
    const CodePoint first = next_code_point(text);
    if (is_cased(first.value) || !is_case_ignorable(first.value)) {
      return is_cased(first.value);
    }
    text.remove_prefix(first.size);
  }
  return false;
}

/// The condition Final_Sigma.
bool ends_a_word(std::string_view before, std::string_view after) noexcept {
  return ends_with_cased(before) && !begins_with_cased(after);
}

/// Appends the lower case of a code point other than the capital sigma, which is `bytes` in its text.
void append_lower(std::string& out, char32_t code_point, std::string_view bytes) {
  const std::array<char32_t, 2> lower = lower_mapping(code_point);
  if (lower[0] == code_point) {
    out += bytes;
    return;
  }
  append_code_point(out, lower[0]);
  if (lower[1] != 0) {
    append_code_point(out, lower[1]);
  }
}

std::string lower_any(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t offset = 0; offset < text.size();) {
    const auto [code_point, size] = next_code_point(text.substr(offset));
    if (is_ascii(text[offset])) {
      out += ascii_lower(text[offset]);
    } else if (code_point == capital_sigma) {
      const bool final = ends_a_word(text.substr(0, offset), text.substr(offset + size));
      append_code_point(out, final ? final_small_sigma : small_sigma);
    } else {
      append_lower(out, code_point, text.substr(offset, size));
    }
    offset += size;
  }
  return out;
}

Text lower_ascii(std::string_view text) {
  std::string bytes(text.size(), '\0');
  std::transform(text.begin(), text.end(), bytes.begin(), ascii_lower);
  return Text(bytes);
}

/// The lower case of a text that is held in its cell, nothing where it is not all ASCII.
std::optional<Text> lower_short(std::string_view text) noexcept {
  std::array<char, detail::inline_text_size> bytes;
  unsigned any = 0;
  for (std::size_t offset = 0; offset < text.size(); ++offset) {
    const unsigned byte = static_cast<unsigned char>(text[offset]);
    any |= byte;
    bytes[offset] = static_cast<char>(byte | (byte - 'A' < 26U ? 0x20U : 0U));
  }
  return any < 0x80 ? std::optional<Text>(std::string_view(bytes.data(), text.size())) : std::nullopt;
}

}  // namespace

Text lower_case(std::string_view text) {
  if (text.size() <= detail::inline_text_size) {
    if (std::optional<Text> lower = lower_short(text)) {
      return *lower;
    }
  }
  return std::all_of(text.begin(), text.end(), is_ascii) ? lower_ascii(text) : Text(lower_any(text));
}

}  // namespace tool_binding::text
