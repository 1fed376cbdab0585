// SPDX-License-Identifier: MIT
#include "support/rows.hpp"

#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/registry_file.hpp"
#include "tool_binding/registry_check.hpp"

namespace tool_binding {
namespace {

/// What a check finds in a registry: `given` takes the place of "@" in `within`, and `around` begins every place.
void expect_findings(const Row& row, std::vector<RegistryFinding> (*check)(std::span<const RegistryEntry>)) {
  std::string text = row.setting("within", "@");
  const json::RegistryFile file(text.replace(text.find('@'), 1, row.given));
  const std::string around = row.setting("around");
  std::string lines;
  for (const RegistryFinding& finding : check(file.entries())) {
    EXPECT_TRUE(finding.place.starts_with(around)) << finding.place;
    lines += (lines.empty() ? "" : "\n") + finding.place.substr(around.size()) + ": " + finding.words;
  }
  EXPECT_EQ(lines.empty() ? "none" : lines, row.expected);
}

void expect_place(const Row& row) {
  const Value asked = json::read(row.given);
  if (row.setting("ask") == "within") {
    EXPECT_EQ(is_place_within(asked.list()[0].text(), asked.list()[1].text()), row.expected == "yes");
  } else {
    EXPECT_EQ(member_place("t", asked.text()), row.expected);
    EXPECT_TRUE(is_place_within(row.expected, "t"));
  }
}

[[maybe_unused]] const bool rows =
    test_rows("registry_errors",
              [](const Row& row) {
                expect_findings(row, [](std::span<const RegistryEntry> entries) { return registry_errors(entries); });
              }) &&
    test_rows("registry_warnings", [](const Row& row) { expect_findings(row, registry_warnings); }) &&
    test_rows("place", expect_place);

TEST(Place, OfAnItemIsItsNumber) { EXPECT_EQ(item_place(member_place("", "tools"), 12), "tools[12]"); }

}  // namespace
}  // namespace tool_binding
