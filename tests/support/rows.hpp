// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>
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
  int line;           ///< of the file, from 1
  std::string place;  ///< the file, the line and the rule, for the message of a failure

  [[nodiscard]] std::string setting(const std::string& word, const std::string& otherwise = "") const {
    const auto found = set.find(word);
    return found == set.end() ? otherwise : found->second;
  }
};

/// The lines of a text under the number of each, with the indented ones at the end of the line that they go on with.
inline std::vector<std::pair<int, std::string>> joined_lines(std::istream& text) {
  std::vector<std::pair<int, std::string>> lines;
  int number = 0;
  for (std::string line; std::getline(text, line);) {
    ++number;
    if (line.starts_with("  ") && !lines.empty()) {
      lines.back().second += "\n" + line.substr(line.find_first_not_of(' '));
    } else {
      lines.emplace_back(number, line);
    }
  }
  return lines;
}

/// The rows of a text. Throws std::runtime_error for a line that is none of the above, and where there is no row.
inline std::vector<Row> read_rows(std::istream& text, const std::string& name) {
  std::vector<Row> rows;
  std::map<std::string, std::string> set;
  std::string rule;
  bool row_was_last = true;
  for (const auto& [number, line] : joined_lines(text)) {
    const std::string place = name + ":" + std::to_string(number) + ": ";
    const std::size_t word = line.find_first_not_of("abcdefghijklmnopqrstuvwxyz_");
    const std::size_t arrow = std::min(line.find(" -> "), line.find("\n-> "));
    if (line.starts_with("# ")) {
      rule = line;
    } else if (word != 0 && word != line.npos && line.compare(word, 2, ": ") == 0) {
      if (std::exchange(row_was_last, false)) {
        set.clear();
      }
      set[line.substr(0, word)] = line.substr(word + 2);
    } else if (arrow != line.npos) {
      row_was_last = true;
      std::string expected = line.substr(arrow + 4);
      for (std::size_t next = 0; (next = expected.find("\n-> ", next)) != expected.npos;) {
        expected.erase(++next, 3);
      }
      rows.push_back({set, line.substr(0, arrow), expected, number, place + rule});
    } else if (!line.empty()) {
      throw std::runtime_error(place + "a row is written 'given -> expected'");
    }
  }
  return rows.empty() ? throw std::runtime_error(name + " has no rows") : rows;
}

/// The rows of a file, whose path begins beside the source that asks for it.
inline std::vector<Row> rows_of(const std::string& name, const char* source = __builtin_FILE()) {
  std::ifstream file(std::string(source).erase(std::string(source).rfind('/') + 1) + name);
  return read_rows(file, name);
}

/// A test of one row.
class RowTest : public testing::Test {
 public:
  using Check = std::function<void(const Row&)>;

  RowTest(Row row, Check check) : row_(std::move(row)), check_(std::move(check)) {}

  void TestBody() override {
    SCOPED_TRACE(row_.place);
    check_(row_);
  }

 private:
  Row row_;
  Check check_;
};

/// Makes each row of a file `NAME.rows` beside the source a test of its own: that of line 12 is "Rows.NAME_12", and
/// `--gtest_filter` runs it alone. To be called before `main`; a program that has a malformed row ends there.
inline bool test_rows(const std::string& name, const RowTest::Check& check, const char* source = __builtin_FILE()) {
  for (const Row& row : rows_of(name + ".rows", source)) {
    testing::RegisterTest("Rows", (name + "_" + std::to_string(row.line)).c_str(), nullptr, nullptr, source, row.line,
                          [row, check]() -> RowTest* { return new RowTest(row, check); });
  }
  return true;
}

}  // namespace tool_binding
