// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Text as answers show it.
namespace repo_daemon {

/// The lines of a text without their line ends, as views of it. What follows the last line feed is a line unless it is
/// empty.
[[nodiscard]] std::vector<std::string_view> lines_of(std::string_view text);

/// The text with U+FFFD for each byte that is no part of well-formed UTF-8, so that any reader of JSON takes it.
[[nodiscard]] std::string well_formed(std::string_view text);

/// At most that many bytes of a text, cut between characters, with "…" where it goes on. A line of a file or a path is
/// shown up to 300 bytes.
[[nodiscard]] std::string shown(std::string_view text, std::size_t most_bytes = 300);

/// "1 file", "2 files"; or "0 entries", where the plural is not the noun and "s".
[[nodiscard]] std::string counted(std::size_t count, std::string_view noun, std::string_view plural = {});

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
