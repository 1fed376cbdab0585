// SPDX-License-Identifier: MIT
#include "text.hpp"

#include <algorithm>
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

}  // namespace

std::vector<std::string_view> lines_of(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string well_formed(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = character_length(text);
    result += length == 0 ? std::string_view("\xEF\xBF\xBD") : text.substr(0, length);
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result;
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

std::string counted(std::size_t count, std::string_view noun, std::string_view plural) {
  const std::string words = std::to_string(count) + " ";
  if (count != 1 && !plural.empty()) {
    return words + std::string(plural);
  }
  return words + std::string(noun) + (count == 1 ? "" : "s");
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
