// SPDX-License-Identifier: MIT
#include "wire.hpp"

#include <algorithm>
#include <array>

namespace tool_binding::server::detail {

namespace {

/// The place behind the text in double quotes that begins at `place`.
std::size_t behind_text(std::string_view text, std::size_t place) noexcept {
  for (++place; place < text.size() && text[place] != '"'; ++place) {
    place += text[place] == '\\' ? 1U : 0U;
  }
  return std::min(place + 1, text.size());
}

constexpr std::string_view white_space = " \t\r\n";
constexpr std::array<std::string_view, 2> bare_words = {"NaN", "Infinity"};

bool may_have_bare_words(std::string_view text) noexcept {
  return std::any_of(bare_words.begin(), bare_words.end(),
                     [&](std::string_view word) { return text.find(word) != std::string_view::npos; });
}

/// The place behind the value that begins at `place`.
std::size_t behind_value(std::string_view text, std::size_t place) noexcept {
  std::size_t depth = 0;
  while (place < text.size()) {
    const char byte = text[place];
    if (byte == '"') {
      place = behind_text(text, place);
    } else if (byte == '{' || byte == '[') {
      ++depth;
      ++place;
    } else if (depth == 0) {
      place = std::min(text.find_first_of(" \t\r\n,]}", place), text.size());
    } else {
      depth -= byte == '}' || byte == ']' ? 1U : 0U;
      ++place;
    }
    if (depth == 0) {
      return place;
    }
  }
  return place;
}

std::size_t skip_white_space(std::string_view text, std::size_t place) noexcept {
  return std::min(text.find_first_not_of(white_space, place), text.size());
}

/// The last member counts, as it does for the reader.
std::string_view id_in_object(std::string_view text) noexcept {
  std::string_view found;
  std::size_t place = skip_white_space(text, 1);
  while (place < text.size() && text[place] == '"') {
    const std::size_t end = behind_text(text, place);
    const bool is_id = text.substr(place, end - place) == "\"id\"";
    const std::size_t value = skip_white_space(text, skip_white_space(text, end) + 1);
    const std::size_t value_end = behind_value(text, value);
    found = is_id ? text.substr(value, value_end - value) : found;
    place = skip_white_space(text, skip_white_space(text, value_end) + 1);
  }
  return found;
}

void replace_halves(std::string& text) {
  std::size_t place = text.find("\\ud");
  if (place == std::string::npos) {
    return;
  }
  std::string sendable;
  std::size_t copied = 0;
  for (place = text.find('\\'); place != std::string::npos; place = text.find('\\', place + 2)) {
    if (text.compare(place, 3, "\\ud") == 0) {
      sendable.append(text, copied, place - copied).append("\uFFFD");
      copied = place + 6;
    }
  }
  text = sendable.append(text, copied);
}

void replace_bare_words(std::string& text) {
  for (std::size_t place = 0; (place = place_of_bare_word(text)) != std::string::npos;) {
    const std::size_t begin = place - (place != 0 && text[place - 1] == '-' ? 1U : 0U);
    text.replace(begin, text[place] == 'N' ? place + 3 - begin : place + 8 - begin, "null");
  }
}

}  // namespace

bool is_blank_line(std::string_view line) noexcept {
  return line.find_first_not_of(white_space) == std::string_view::npos;
}

std::size_t place_of_bare_word(std::string_view text) noexcept {
  if (!may_have_bare_words(text)) {
    return std::string_view::npos;
  }
  for (std::size_t place = 0; place < text.size();) {
    if (text[place] == '"') {
      place = behind_text(text, place);
    } else if (text[place] == 'N' || text[place] == 'I') {
      return place;
    } else {
      ++place;
    }
  }
  return std::string_view::npos;
}

std::string_view spelled_id(std::string_view text, std::size_t place) noexcept {
  std::size_t begin = skip_white_space(text, 0);
  if (text[begin] == '[') {
    begin = skip_white_space(text, begin + 1);
    for (; place > 0; --place) {
      begin = skip_white_space(text, skip_white_space(text, behind_value(text, begin)) + 1);
    }
  }
  return id_in_object(text.substr(begin, behind_value(text, begin) - begin));
}

void make_sendable(std::string& text) {
  replace_halves(text);
  replace_bare_words(text);
}

std::string shortened(std::string_view text, std::size_t most_bytes) {
  if (text.size() <= most_bytes) {
    return std::string(text);
  }
  constexpr std::string_view ellipsis = "…";
  std::size_t end = most_bytes < ellipsis.size() ? 0 : most_bytes - ellipsis.size();
  const std::size_t least = end - std::min<std::size_t>(end, 3);  // a character has four bytes at most
  while (end > least && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
    --end;
  }
  return std::string(text.substr(0, end)).append(ellipsis);
}

}  // namespace tool_binding::server::detail
