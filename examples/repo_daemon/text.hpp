// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Text as answers show it.
namespace repo_daemon {

/// The lines of a text without their line ends, one after another, as views of it. What follows the last line feed is a
/// line unless it is empty. None is kept, as millions of empty lines go into one file.
class Lines {
 public:
  explicit Lines(std::string_view text) noexcept : rest_(text) {}

  /// The next line; nothing after the last.
  [[nodiscard]] std::optional<std::string_view> next() noexcept;

 private:
  std::string_view rest_;
};

[[nodiscard]] std::size_t line_count(std::string_view text) noexcept;

/// Takes the first character of UTF-8 (RFC 3629) off a text that is not empty. A byte that is no part of well-formed
/// UTF-8 is taken alone, as U+DC00 and the byte: a surrogate, which no well-formed text holds.
[[nodiscard]] char32_t take_character(std::string_view& text) noexcept;

/// At most that many bytes of a text, cut between characters, with "…" where it goes on.
[[nodiscard]] std::string shown(std::string_view text, std::size_t most_bytes = 300);

/// A line of a file, up to 300 bytes of it. What would not be seen as it is, or would move what stands around it, is
/// written as an escape: control characters except for the tab, marks of the direction of text, invisible characters
/// and line separators, "\x1b" or "\u202e". A backslash stays as it is, since sources hold many.
[[nodiscard]] std::string shown_line(std::string_view line);

/// The name of a file or its path, whole. Tabs, backslashes and bytes that are not UTF-8 are escaped as well, so that
/// no two names are shown alike.
[[nodiscard]] std::string shown_name(std::string_view name);

/// "1 file", "2 files"; or "0 entries", where the plural is not the noun and "s".
[[nodiscard]] std::string counted(std::size_t count, std::string_view noun, std::string_view plural = {});

/// "10 seconds", or "50 milliseconds" where the time is not a whole number of seconds.
[[nodiscard]] std::string in_seconds(std::chrono::milliseconds time);

/// The lines of an answer, up to a number of bytes that a caller can digest.
class Report {
 public:
  void add(std::string_view line);

  /// The report: the lines, one that says so when some were left out, and the summary, where there is one.
  [[nodiscard]] std::string text(std::string_view summary = {}) &&;

 private:
  void append(std::string_view line);

  std::string text_;
  std::size_t left_out_ = 0;
};

}  // namespace repo_daemon
