// SPDX-License-Identifier: MIT
#include "tool_binding/ordered_map.hpp"

#include <chrono>
#include <limits>
#include <map>
#include <stdexcept>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

std::string name_of(std::size_t number) { return "name " + std::to_string(number); }

/// The entries "name 0" to "name <count - 1>", each with its number.
ArgumentMap numbered(std::size_t count) {
  ArgumentMap map;
  for (std::size_t number = 0; number < count; ++number) {
    map.set(name_of(number), number);
  }
  return map;
}

void expect_numbered(const ArgumentMap& map, std::size_t count) {
  ASSERT_EQ(map.size(), count);
  for (std::size_t number = 0; number < count; ++number) {
    const Value* const found = map.find(name_of(number));
    ASSERT_NE(found, nullptr) << number << " of " << count;
    EXPECT_EQ(found, &map[number].value) << number << " of " << count;
    EXPECT_EQ(*found, Value(number));
    EXPECT_EQ(map.linear_search(name_of(number)), number);
  }
  EXPECT_FALSE(map.contains(name_of(count)) || map.contains("name") || map.contains(""));
  EXPECT_EQ(map.linear_search(name_of(count)), count);
}

TEST(OrderedMap, KeepsAnEntryInItsFirstPlace) {
  ArgumentMap map = {{"b", 1}, {"a", 2}, {"b", 3}};
  EXPECT_EQ(one_line(map), "{b: 3, a: 2}");
  map.set("c", 4);
  map.set("a", {});
  EXPECT_EQ(one_line(map), "{b: 3, a: None, c: 4}");
  EXPECT_TRUE(map.contains("a") && !map.contains("A"));
  EXPECT_EQ(map, (ArgumentMap{{"b", 3}, {"a", nullptr}, {"c", 4}}));
  EXPECT_NE(map, (ArgumentMap{{"a", nullptr}, {"b", 3}, {"c", 4}}));
}

TEST(OrderedMap, FindsEveryEntryAtAnySize) {
  for (const std::size_t count : {0U, 1U, 15U, 16U, 17U, 18U, 100U}) {
    ArgumentMap map = numbered(count);
    expect_numbered(map, count);
    for (std::size_t number = 0; number < count; ++number) {
      map.set(name_of(number), "other");
      map.set(name_of(number), number);
    }
    map.append(name_of(count), count);
    expect_numbered(map, count + 1);
  }
}

TEST(OrderedMap, TakesAValueOfItsOwnWhereItHasToGrow) {
  ArgumentMap map = {{"a", "a text that stands in a node"}};
  for (std::size_t count = 1; count < 100; ++count) {
    map.append(name_of(count), map[count - 1].value);
  }
  EXPECT_EQ(map[99].value, map[0].value);
}

TEST(OrderedMap, KeepsItsCopiesApart) {
  for (const std::size_t count : {3U, 40U}) {
    ArgumentMap map = numbered(count);
    expect_numbered(map, count);
    ArgumentMap copy = map;
    copy.set(name_of(count), count);
    copy.set(name_of(0), "changed");
    expect_numbered(map, count);
    EXPECT_EQ(*copy.find(name_of(0)), Value("changed"));
    EXPECT_EQ(*copy.find(name_of(count)), Value(count));

    ArgumentMap moved = std::move(map);
    expect_numbered(moved, count);
    expect_numbered(map, 0);  // NOLINT(bugprone-use-after-move): a map that was moved from is empty
    map.set("a", 1);
    EXPECT_EQ(one_line(map), "{a: 1}");
    copy = numbered(count + 20);
    expect_numbered(copy, count + 20);
    copy = std::move(moved);
    expect_numbered(copy, count);
    const ArgumentMap& same = copy;
    copy = same;
    expect_numbered(copy, count);
  }
}

/// What no ordinary memory block is aligned to.
struct alignas(128) Aligned {
  std::size_t number = 0;
};

TEST(OrderedMap, AlignsWhatItHolds) {
  OrderedMap<Aligned> map;
  for (std::size_t count = 1; count < 40; ++count) {
    map.append(name_of(count), Aligned{count});
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(&map[count - 1].value) % alignof(Aligned), 0U) << count;
  }
  EXPECT_EQ(OrderedMap<Aligned>(map).at(name_of(39)).number, 39U);
}

TEST(OrderedMap, RefusesRoomThatNoMemoryHas) {
  constexpr std::size_t greatest = std::numeric_limits<std::size_t>::max();
  ArgumentMap map = numbered(3);
  for (const std::size_t count : {greatest, greatest - 3, greatest / sizeof(ArgumentMap::Entry) + 1, greatest / 2}) {
    EXPECT_THROW(map.reserve(count), std::length_error) << count;
    EXPECT_THROW(ArgumentMap(map, count), std::length_error) << count;
  }
  expect_numbered(map, 3);
}

TEST(OrderedMap, SaysWhichNamesThereAre) {
  EXPECT_EQ(numbered(2).at("name 1"), Value(1));
  EXPECT_EQ(outcome_of([] { return numbered(0).at("a"); }), "KeyError: no entry is named 'a': the map is empty");
  EXPECT_EQ(outcome_of([] { return numbered(2).at("name 2"); }),
            "KeyError: no entry is named 'name 2': there are 'name 0', 'name 1'");
  EXPECT_EQ(outcome_of([] { return numbered(40).at("a"); }),
            "KeyError: no entry is named 'a': there are 'name 0', 'name 1', 'name 2', 'name 3', 'name 4', 'name 5', "
            "'name 6', 'name 7' and 32 more");
}

TEST(OrderedMap, TakesEntriesOut) {
  for (const std::size_t count : {1U, 16U, 17U, 40U}) {
    ArgumentMap map = numbered(count);
    map.set("last", std::string(99, 'a'));
    EXPECT_TRUE(map.erase("last") && !map.erase("last"));
    expect_numbered(map, count);
    EXPECT_TRUE(map.erase(map[0].name));
    EXPECT_EQ(map.size(), count - 1);
    for (std::size_t number = 1; number < count; ++number) {
      EXPECT_EQ(map.find(name_of(number)), &map[number - 1].value) << number << " of " << count;
    }
    EXPECT_FALSE(map.contains(name_of(0)));
  }
}

TEST(OrderedMap, IsMadeOfRangesAndFilledByIterators) {
  static_assert(std::same_as<std::iterator_traits<ArgumentMap::const_iterator>::value_type, ArgumentMap::value_type> &&
                std::same_as<ArgumentMap::mapped_type, Value>);
  const std::map<std::string, int> sorted = {{"b", 2}, {"a", 1}};
  EXPECT_EQ(ArgumentMap(sorted), (ArgumentMap{{"a", 1}, {"b", 2}}));
  EXPECT_EQ(ArgumentMap(sorted.rbegin(), sorted.rend()), (ArgumentMap{{"b", 2}, {"a", 1}}));
  const ArgumentMap map = numbered(40);
  EXPECT_EQ(ArgumentMap(map.begin() + 1, map.end()).at(name_of(39)), Value(39));
}

TEST(OrderedMap, TakesManyEntriesInLittleMoreThanTheirNumber) {
  const auto start = std::chrono::steady_clock::now();
  const ArgumentMap map = numbered(100'000);
  EXPECT_EQ(*map.find(name_of(99'999)), Value(99'999));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace tool_binding
