// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tool_binding/report/pages.hpp"

/// Text for a terminal, in columns.
namespace tool_binding::report {

/// The code points of a text that is shown, each of which takes a column in nearly all that callers write.
[[nodiscard]] std::size_t width_of(std::string_view text);

/// The text, with "…" for what is beyond the width.
[[nodiscard]] std::string cut(std::string_view text, std::size_t width);

/// The text with blanks behind it, or before it, up to the width.
[[nodiscard]] std::string padded(const std::string& text, std::size_t width, bool to_the_right = false);

/// A bar of at most `width` columns, in eighths of one; something for all that is not nothing.
[[nodiscard]] std::string bar(double share, std::size_t width);

/// Lines of a page.
class TextWriter {
 public:
  explicit TextWriter(const TextStyle& style) : style_(style) {}

  [[nodiscard]] const TextStyle& style() const noexcept { return style_; }

  void add_line(std::string_view colour, std::string_view words);
  void add_heading(std::string_view words);

  /// Words over several lines of the page's width, the first of them behind `mark`.
  void add_words(std::string_view words, std::string_view indent, std::string_view colour = {},
                 std::string_view mark = {});

  /// The place of an example and its request, on one line.
  void add_example(const Example& example, std::string_view indent);

  /// A name, how often it came, its share and a bar of it.
  void add_share(std::string_view name, std::size_t name_width, std::string_view colour, std::uint64_t times,
                 std::uint64_t of, std::size_t bar_width);

  [[nodiscard]] std::string take() && { return std::move(text_); }

 private:
  const TextStyle& style_;
  std::string text_;
};

}  // namespace tool_binding::report
