// SPDX-License-Identifier: MIT
#include "tool_binding/report/counts.hpp"

#include <gtest/gtest.h>

#include <string>

namespace tool_binding::report {
namespace {

/// Names of which few come often and most come once, in an order that is always the same.
std::vector<Text> many_names(unsigned seed, int count) {
  std::vector<Text> names;
  for (int turn = 0; turn < count; ++turn) {
    seed = seed * 1664525U + 1013904223U;
    const unsigned draw = seed >> 16U;
    names.emplace_back(draw % 3 == 0 ? "rare " + std::to_string(draw) : "often " + std::to_string(draw % 7));
  }
  return names;
}

/// Every count that is held is between the true one and the shortfall below it; what is not held came no oftener.
void expect_bounds(const Counts& counts, const std::map<Text, std::uint64_t>& exact, std::uint64_t all,
                   std::uint64_t limit) {
  EXPECT_LE(counts.all().size(), limit);
  EXPECT_LE(counts.shortfall(), 2 * all / limit);
  for (const auto& [name, times] : exact) {
    const auto held = counts.all().find(name);
    const std::uint64_t said = held == counts.all().end() ? 0 : held->second.times;
    EXPECT_LE(said, times) << name.view();
    EXPECT_LE(times, said + counts.shortfall()) << name.view();
  }
  EXPECT_EQ(counts.most_frequent().front()->first.view().substr(0, 5), "often");
}

TEST(Counts, AreExactUpToTheLimitAndBoundedBeyondIt) {
  constexpr std::size_t limit = 64;
  std::map<Text, std::uint64_t> exact;
  Counts first(limit);
  Counts second(limit);
  for (const unsigned seed : {1U, 2U}) {
    for (const Text& name : many_names(seed, 20000)) {
      Counts& counts = seed == 1 ? first : second;
      ++exact[name];
      ++counts[name].times;
      ASSERT_TRUE(seed == 2 || counts.is_exact() == (exact.size() <= limit)) << exact.size();
    }
    if (seed == 1) {
      expect_bounds(first, exact, 20000, limit);
    }
  }
  first.merge(second);
  expect_bounds(first, exact, 40000, limit);
  EXPECT_FALSE(first.is_exact());
}

TEST(Counts, KeepTheFirstExampleAndAddWhatWasLacking) {
  Counts early(2);
  Counts late(2);
  early["a"] = {.times = 1, .lacking = {{"x", 1}}, .example = {"f", 1, "{}"}};
  late["a"] = {.times = 2, .lacking = {{"x", 1}, {"y", 2}}, .example = {"g", 9, "[]"}};
  late["b"].times = 3;
  early.merge(late);
  const Count& merged = early.all().at("a");
  EXPECT_EQ(merged.times, 3U);
  EXPECT_EQ(merged.example, (Example{"f", 1, "{}"}));
  EXPECT_EQ(merged.lacking, (std::map<Text, std::uint64_t>{{"x", 2}, {"y", 2}}));
  EXPECT_TRUE(early.is_exact());
}

TEST(Examples, AreCutBetweenCodePoints) {
  EXPECT_EQ(shortened("short"), "short");
  EXPECT_EQ(shortened(std::string(239, 'a') + "äb"), std::string(239, 'a') + "…");
}

}  // namespace
}  // namespace tool_binding::report
