// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "model/difference.hpp"
#include "model/model.hpp"
#include "pool.hpp"

/// Random registries of several tools, and requests for them, the same in every run.
namespace tool_binding {
namespace {

constexpr int requests_in_all = 20'000;
constexpr int requests_for_each_tool = 5;

std::vector<std::uint8_t> random_bytes(std::mt19937& random, std::size_t count) {
  std::vector<std::uint8_t> bytes(count);
  for (std::uint8_t& byte : bytes) {
    byte = static_cast<std::uint8_t>(random());
  }
  return bytes;
}

void expect_answered_alike(const model::Tool& tool, fuzz::Choices choices) {
  const ArgumentMap request = fuzz::draw_request(choices, tool.declared);
  const Text action = fuzz::draw_name(choices);
  const std::string difference = model::difference_in_walk(tool, request) +
                                 model::difference_in_missing(tool, {}, request) +
                                 model::difference_in_missing(tool, action, request) +
                                 model::difference_in_default(tool, fuzz::draw_name(choices), action);
  EXPECT_TRUE(difference.empty()) << difference;
}

TEST(RandomRegistries, AreAnsweredForAsTheModelDoes) {
  std::mt19937 random(1);
  for (int asked = 0; asked < requests_in_all && !HasFailure();) {
    const auto bytes = random_bytes(random, 4000);
    fuzz::Choices choices(bytes.data(), bytes.size());
    const std::vector<ToolDeclaration> registry = fuzz::draw_registry(choices);
    ToolTable table;
    for (const ToolDeclaration& declared : registry) {
      table.add(declared);
    }
    for (const ToolSpec& record : table.all()) {
      const model::Tool tool{model::tool_named(registry, record.name()), table[record.name()]};
      for (int count = 0; count < requests_for_each_tool && !HasFailure(); ++count, ++asked) {
        const auto more_bytes = random_bytes(random, 300);
        expect_answered_alike(tool, {more_bytes.data(), more_bytes.size()});
      }
    }
  }
}

}  // namespace
}  // namespace tool_binding
