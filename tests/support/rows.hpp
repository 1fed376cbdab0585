// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// Tables of what is given and what comes of it, as files of `given -> expected`.
///
/// A comment names the rule that the rows beneath it show. `word: text` sets something for them; the first one after a
/// row clears what was set before. An indented line goes on with the line before it.
namespace tool_binding {

struct Row {
  std::map<std::string, std::string> set;
  std::string given;
  std::string expected;
  std::string place;  ///< the file, the line and the rule, for the message of a failure
};

/// The lines of a file under the number of each, with the indented ones at the end of the line that they go on with.
inline std::vector<std::pair<int, std::string>> joined_lines(const std::string& path) {
  std::ifstream file(path);
  std::vector<std::pair<int, std::string>> lines;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.starts_with("  ") && !lines.empty()) {
      lines.back().second += "\n" + line.substr(line.find_first_not_of(' '));
    } else {
      lines.emplace_back(number, line);
    }
  }
  return lines;
}

/// The rows of a file that stands beside the source which asks for it.
inline std::vector<Row> rows_of(const std::string& name, const char* source = __builtin_FILE()) {
  const std::string path = std::string(source).erase(std::string(source).rfind('/') + 1) + name;
  std::vector<Row> rows;
  std::map<std::string, std::string> set;
  std::string rule;
  bool row_was_last = true;
  for (const auto& [number, line] : joined_lines(path)) {
    const std::size_t word = line.find_first_not_of("abcdefghijklmnopqrstuvwxyz_");
    const std::size_t arrow = std::min(line.find(" -> "), line.find("\n-> "));
    if (line.starts_with("# ")) {
      rule = line;
    } else if (word != 0 && word != line.npos && line.compare(word, 2, ": ") == 0) {
      if (std::exchange(row_was_last, false)) {
        set.clear();
      }
      set[line.substr(0, word)] = line.substr(word + 2);
    } else if (!line.empty()) {
      row_was_last = true;
      std::string expected = line.substr(arrow + 4);
      for (std::size_t next = 0; (next = expected.find("\n-> ", next)) != expected.npos;) {
        expected.erase(++next, 3);
      }
      rows.push_back({set, line.substr(0, arrow), expected, name + ":" + std::to_string(number) + ": " + rule});
    }
  }
  EXPECT_FALSE(rows.empty()) << name;
  return rows;
}

}  // namespace tool_binding
