// SPDX-License-Identifier: MIT
#include "text.hpp"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

namespace repo_daemon {

namespace {

bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// What the first bytes of a sequence of UTF-8 say (RFC 3629): its length, and the range of its second byte.
struct Lead {
  unsigned char first;
  unsigned char last;
  std::size_t length;
  unsigned char second_from;
  unsigned char second_to;
};

constexpr Lead leads[] = {{0x00, 0x7F, 1, 0, 0},       {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
                          {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
                          {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F}};

/// The length of the well-formed character that `text` begins with, 0 when it begins with none.
std::size_t character_length(std::string_view text) {
  const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(text[place]); };
  const auto* const lead = std::find_if(std::begin(leads), std::end(leads), [&](const Lead& candidate) {
    return candidate.first <= byte(0) && byte(0) <= candidate.last;
  });
  if (lead == std::end(leads) || text.size() < lead->length) {
    return 0;
  }
  if (lead->length > 1 && (byte(1) < lead->second_from || byte(1) > lead->second_to)) {
    return 0;
  }
  const std::string_view rest = text.substr(1, lead->length - 1);
  return std::all_of(rest.begin(), rest.end(), continues) ? lead->length : 0;
}

constexpr char32_t not_utf8 = 0xDC00;
constexpr std::string_view replacement = "\xEF\xBF\xBD";

bool is_not_utf8(char32_t character) { return (character & 0xFFFFFF00U) == not_utf8; }

struct Range {
  char32_t first;
  char32_t last;
};

/// Control characters, and those of the Unicode Standard that are not seen, that direct the text around them or that
/// end a line. The two joiners are not part of it: scripts and emoji are spelled with them.
constexpr Range deceptive[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0xAD, 0xAD},     {0x61C, 0x61C},
                               {0x180E, 0x180E}, {0x200B, 0x200B}, {0x200E, 0x200F}, {0x2028, 0x202E},
                               {0x2060, 0x206F}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB}, {0xE0000, 0xE0FFF}};

bool is_deceptive(char32_t character) {
  return std::any_of(std::begin(deceptive), std::end(deceptive),
                     [&](const Range& range) { return range.first <= character && character <= range.last; });
}

/// A byte that is not UTF-8 is "\xe9", the character of that number "\u00e9".
std::string escape_of(char32_t character) {
  switch (character) {
    case '\t':
      return "\\t";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\\':
      return "\\\\";
    default:
      break;
  }
  const char* const form = character < 0x80 || is_not_utf8(character) ? "\\x%02x"
                           : character < 0x10000                      ? "\\u%04x"
                                                                      : "\\U%08x";
  char escape[16];
  std::snprintf(escape, sizeof escape, form,
                static_cast<unsigned>(is_not_utf8(character) ? character - not_utf8 : character));
  return escape;
}

/// The text with an escape for each character that is to be escaped, and well-formed.
template <class IsEscaped>
std::string with_escapes(std::string_view text, const IsEscaped& is_escaped) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::string_view from = text;
    const char32_t character = take_character(text);
    if (is_escaped(character)) {
      result += escape_of(character);
    } else {
      result += is_not_utf8(character) ? replacement : from.substr(0, from.size() - text.size());
    }
  }
  return result;
}

}  // namespace

std::optional<std::string_view> Lines::next() noexcept {
  if (rest_.empty()) {
    return std::nullopt;
  }
  const std::size_t end = std::min(rest_.find('\n'), rest_.size());
  std::string_view line = rest_.substr(0, end);
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  if (line.ends_with('\r')) {
    line.remove_suffix(1);
  }
  return line;
}

std::size_t line_count(std::string_view text) noexcept {
  const auto line_feeds = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  return line_feeds + (text.empty() || text.ends_with('\n') ? 0 : 1);
}

char32_t take_character(std::string_view& text) noexcept {
  constexpr unsigned char bits_of_lead[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  const std::size_t length = character_length(text);
  const auto lead = static_cast<unsigned char>(text.front());
  char32_t character = length == 0 ? not_utf8 + lead : lead & bits_of_lead[length];
  for (std::size_t place = 1; place < length; ++place) {
    character = character << 6 | (static_cast<unsigned char>(text[place]) & 0x3FU);
  }
  text.remove_prefix(std::max<std::size_t>(length, 1));
  return character;
}

std::string shown(std::string_view text, std::size_t most_bytes) {
  if (text.size() <= most_bytes) {
    return std::string(text);
  }
  std::size_t end = most_bytes;
  while (end > 0 && continues(text[end])) {
    --end;
  }
  return std::string(text.substr(0, end)) + "…";
}

std::string shown_line(std::string_view line) {
  return with_escapes(shown(line), [](char32_t character) { return character != '\t' && is_deceptive(character); });
}

std::string shown_name(std::string_view name) {
  return with_escapes(
      name, [](char32_t character) { return character == '\\' || is_deceptive(character) || is_not_utf8(character); });
}

std::string counted(std::size_t count, std::string_view noun, std::string_view plural) {
  const std::string words = std::to_string(count) + " ";
  if (count != 1 && !plural.empty()) {
    return words + std::string(plural);
  }
  return words + std::string(noun) + (count == 1 ? "" : "s");
}

std::string in_seconds(std::chrono::milliseconds time) {
  const auto count = static_cast<std::size_t>(time.count());
  return count % 1000 == 0 ? counted(count / 1000, "second") : counted(count, "millisecond");
}

void Report::add(std::string_view line) {
  constexpr std::size_t most_bytes = 128 * 1024;
  if (left_out_ != 0 || text_.size() + line.size() > most_bytes) {
    ++left_out_;
    return;
  }
  append(line);
}

std::string Report::text(std::string_view summary) && {
  if (left_out_ != 0) {
    append("… and " + counted(left_out_, "more line") + ", too many for one answer");
  }
  if (!summary.empty()) {
    append(summary);
  }
  return std::move(text_);
}

void Report::append(std::string_view line) { text_.append(text_.empty() ? "" : "\n").append(line); }

}  // namespace repo_daemon
