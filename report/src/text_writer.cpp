// SPDX-License-Identifier: MIT
#include "text_writer.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "numbers.hpp"
#include "story.hpp"

namespace tool_binding::report {

namespace {

bool begins_code_point(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

}  // namespace

std::size_t width_of(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins_code_point));
}

std::string cut(std::string_view text, std::size_t width) {
  if (width_of(text) <= width) {
    return std::string(text);
  }
  std::string out;
  std::size_t columns = 0;
  for (const char byte : text) {
    if (begins_code_point(byte) && ++columns >= width) {
      break;
    }
    out += byte;
  }
  return out + "…";
}

std::string padded(const std::string& text, std::size_t width, bool to_the_right) {
  const std::string blanks(width - std::min(width, width_of(text)), ' ');
  return to_the_right ? blanks + text : text + blanks;
}

std::string bar(double share, std::size_t width) {
  static constexpr std::array<std::string_view, 8> ends = {"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
  auto eighths = static_cast<std::size_t>(std::lround(share * static_cast<double>(width) * 8));
  eighths = share > 0 ? std::max<std::size_t>(eighths, 1) : 0;
  std::string out;
  for (std::size_t full = 0; full < eighths / 8; ++full) {
    out += "█";
  }
  return out.append(ends[eighths % 8]);
}

void TextWriter::add_line(std::string_view colour, std::string_view words) {
  text_.append(colour).append(words).append(colour.empty() ? "" : style_.off).append("\n");
}

void TextWriter::add_heading(std::string_view words) {
  text_.append("\n");
  add_line(style_.heading, words);
}

void TextWriter::add_words(std::string_view words, std::string_view indent, std::string_view colour,
                           std::string_view mark) {
  std::string line(mark.empty() ? indent : mark);
  bool is_empty = true;
  while (!words.empty()) {
    const std::string_view word = words.substr(0, words.find(' '));
    if (!is_empty && width_of(line) + 1 + width_of(word) > style_.width) {
      add_line(colour, line);
      line = indent;
      is_empty = true;
    }
    line.append(is_empty ? "" : " ").append(word);
    is_empty = false;
    words.remove_prefix(std::min(word.size() + 1, words.size()));
  }
  add_line(colour, line);
}

void TextWriter::add_example(const Example& example, std::string_view indent) {
  if (example.line == 0) {
    return;
  }
  const std::string place = shown(example.file) + ":" + std::to_string(example.line) + ": ";
  const std::size_t used = width_of(indent) + width_of(place);
  const std::size_t room = style_.width > used + 20 ? style_.width - used : 20;
  add_line(style_.aside, std::string(indent) + place + cut(shown(example.request), room));
}

void TextWriter::add_share(std::string_view name, std::size_t name_width, std::string_view colour, std::uint64_t times,
                           std::uint64_t of, std::size_t bar_width) {
  text_.append(name).append(name_width - std::min(name_width, width_of(name)), ' ');
  text_.append(padded(with_commas(times), 12, true)).append(padded(percent(times, of), 9, true)).append("  ");
  add_line(colour, bar(share_of(times, of), bar_width));
}

}  // namespace tool_binding::report
