// SPDX-License-Identifier: MIT
#include "support/rows.hpp"

#include <sstream>

namespace tool_binding {
namespace {

std::string rows_in(const std::string& text) {
  std::istringstream stream(text);
  std::string lines;
  try {
    for (const Row& row : read_rows(stream, "f")) {
      lines +=
          row.place + "|" + row.setting("a", "-") + row.setting("b", "-") + "|" + row.given + "|" + row.expected + "\n";
    }
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return lines;
}

TEST(RowFiles, AreReadOrRefused) {
  EXPECT_EQ(rows_in("# r\na: 1\nb: 2\nx -> y\n\nz\n   2\n  -> 1\n  -> 2\nb: 3\n  -> w\nu -> v"),
            "f:4: # r|12|x|y\nf:6: # r|12|z\n2|1\n2\nf:12: # r|-3\n-> w|u|v\n");
  for (const char* malformed : {"x -> y\nz", "x -> y\n#z", "x ->y", "  x", "A: b"}) {
    EXPECT_NE(rows_in(malformed).find("a row is written 'given -> expected'"), std::string::npos) << malformed;
  }
  EXPECT_EQ(rows_in("# r\na: 1\n"), "f has no rows");
}

}  // namespace
}  // namespace tool_binding
