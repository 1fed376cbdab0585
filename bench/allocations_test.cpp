// SPDX-License-Identifier: MIT
#include "allocations.hpp"

#include <gtest/gtest.h>

#include "compile/compiled_tool.hpp"
#include "near_names/nearest.hpp"
#include "tool_binding/json/reader.hpp"
#include "walk.hpp"

namespace tool_binding::bench {
namespace {

template <class Act>
std::size_t allocations_of(const Act& act) {
  const std::size_t before = allocations();
  act();
  return allocations() - before;
}

TEST(Allocations, OfAWalkAreItsResultsAndWhatTheyOwn) {
  const Walk walk;
  const auto of = [&](const Request& request) {
    const Value arguments = json::read(request.text);
    return allocations_of([&] { static_cast<void>(walk(arguments.mapping())); });
  };
  EXPECT_EQ(of(requests[0]), 2U);
  EXPECT_EQ(of(requests[1]), 6U);  // the findings are one of them
}

TEST(Allocations, OfARefusalAreItsFindingsAndItsText) {
  const Walk walk;
  const Value arguments = json::read(requests[2].text);
  const auto refuse = [&] { EXPECT_THROW(static_cast<void>(walk(arguments.mapping())), ArgumentError); };
  EXPECT_LE(allocations_of(refuse), 4U);
}

TEST(Allocations, OfANearNameSearchAreNone) {
  const Walk walk;
  const detail::NearCandidates& names = detail::compiled(walk.tool).near_params;
  for (const std::string_view word : {"lmit", "contxt_lines", "nothing like it"}) {
    EXPECT_EQ(allocations_of([&] { static_cast<void>(_nearest(word, names)); }), 0U) << word;
  }
}

}  // namespace
}  // namespace tool_binding::bench
