// SPDX-License-Identifier: MIT
#include "support/rows.hpp"

#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/registry_file.hpp"
#include "tool_binding/registry_check.hpp"

namespace tool_binding {
namespace {

TEST(RegistryWarnings, DoubtWhatTheRowsSayOfAParameter) {
  const std::string around = "tools[0].params[0].";
  for (const Row& row : rows_of("registry_warnings.rows")) {
    const json::RegistryFile file(R"({"tools": [{"name": "t", "handler": {"parameters": [{"name": "k", "kind": )"
                                  R"("VAR_KEYWORD"}]}, "params": [)" +
                                  row.given + "]}]}");
    ASSERT_EQ(file.entries().size(), 1U) << row.place;
    std::string lines;
    for (const RegistryFinding& finding : registry_warnings(file.entries())) {
      EXPECT_TRUE(finding.place.starts_with(around)) << finding.place;
      lines += (lines.empty() ? "" : "\n") + finding.place.substr(around.size()) + ": " + finding.words;
    }
    EXPECT_EQ(lines.empty() ? "none" : lines, row.expected) << row.place;
  }
}

TEST(Place, IsNamedAndStandsAsTheRowsSay) {
  for (const Row& row : rows_of("place.rows")) {
    const Value asked = json::read(row.given);
    if (row.set.at("ask") == "within") {
      EXPECT_EQ(stands_within(asked.list()[0].text(), asked.list()[1].text()), row.expected == "yes") << row.place;
    } else {
      EXPECT_EQ(member_place("t", asked.text()), row.expected) << row.place;
      EXPECT_TRUE(stands_within(row.expected, "t")) << row.place;
    }
  }
  EXPECT_EQ(item_place(member_place("", "tools"), 12), "tools[12]");
}

}  // namespace
}  // namespace tool_binding
