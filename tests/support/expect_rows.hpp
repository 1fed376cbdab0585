// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/one_line.hpp"

namespace tool_binding {

/// Arguments for a tool, and the line of what comes of them.
struct ArgumentsRow {
  const char* shows;
  ArgumentMap given;
  std::string expected;
};

/// What `answer(given)` comes to in each row. That the arguments come out of it as they went in is checked each time.
template <class Answer>
void expect_rows(const std::vector<ArgumentsRow>& rows, const Answer& answer) {
  for (const ArgumentsRow& row : rows) {
    const std::string before = one_line(row.given);
    EXPECT_EQ(outcome_of([&] { return answer(row.given); }), row.expected) << row.shows;
    EXPECT_EQ(one_line(row.given), before) << row.shows;
  }
}

inline void expect_admitted(const ToolSpec& tool, const std::vector<ArgumentsRow>& rows) {
  expect_rows(rows, [&](const ArgumentMap& given) { return normalize_arguments(tool, given); });
}

}  // namespace tool_binding
