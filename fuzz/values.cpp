// SPDX-License-Identifier: MIT
#include "values.hpp"

#include <bit>
#include <limits>
#include <vector>

namespace tool_binding::fuzz {
namespace {

constexpr std::size_t longest_text = 40;

constexpr std::string_view texts[] = {"",
                                      " ",
                                      "\u3000",
                                      "5",
                                      " -7 ",
                                      "1_000",
                                      "\u0661\u0662",
                                      "2.5",
                                      "1e999",
                                      "-inf",
                                      "NaN",
                                      "true",
                                      " OFF ",
                                      "a,b",
                                      "[\"a\",'b'",
                                      "[\"a\",'b']",
                                      "\"a\"\"b\",,c",
                                      "[1, 2]",
                                      "\"a",
                                      "Red",
                                      "GREEN ",
                                      "\u0130\u03A3",
                                      "it's",
                                      "\"'\\\n",
                                      "\xED\xA0\x80",
                                      "\xFF\xC3",
                                      "007",
                                      "1e3",
                                      "lst",
                                      "find"};

constexpr std::string_view integers[] = {"0",
                                         "1",
                                         "-1",
                                         "100",
                                         "9007199254740993",
                                         "9223372036854775807",
                                         "-9223372036854775808",
                                         "9223372036854775808",
                                         "-100000000000000000000"};

constexpr double doubles[] = {0.0,
                              -0.0,
                              1.0,
                              5.0,
                              2.5,
                              1e-5,
                              1e16,
                              1e20,
                              -9223372036854775808.0,
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::denorm_min(),
                              std::numeric_limits<double>::max()};

constexpr std::string_view member_names[] = {"a", "b", "it's", "a much longer name", ""};

std::uint64_t eight_bytes(Choices& choices) {
  std::uint64_t bits = 0;
  for (int place = 0; place < 8; ++place) {
    bits = bits << 8U | choices.byte();
  }
  return bits;
}

Value make_integer(Choices& choices) {
  switch (choices.below(4)) {
    case 0:
      return std::bit_cast<std::int64_t>(eight_bytes(choices));
    case 1:
      return Integer::from_decimal("-" + std::string(1 + choices.below(256), '9') +
                                   std::string(choices.below(256), '0'));
    default:
      return Integer::from_decimal(choices.one_of(integers));
  }
}

Value make_list(Choices& choices, unsigned depth) {
  std::vector<Value> items;
  for (std::size_t count = choices.below(5); count > 0; --count) {
    items.push_back(make_value(choices, depth - 1));
  }
  return items;
}

Value make_mapping(Choices& choices, unsigned depth) {
  ArgumentMap entries;
  for (std::size_t count = choices.below(4); count > 0; --count) {
    const std::string_view name = choices.one_of(member_names);
    entries.set(name, make_value(choices, depth - 1));
  }
  return entries;
}

}  // namespace

std::string make_text(Choices& choices) {
  return std::string(choices.below(4) != 0 ? choices.one_of(texts) : choices.bytes(longest_text));
}

Value make_value(Choices& choices, unsigned depth) {
  switch (static_cast<Kind>(choices.below(depth == 0 ? 5 : 7))) {
    case Kind::null:
      return {};
    case Kind::boolean:
      return choices.flag();
    case Kind::integer:
      return make_integer(choices);
    case Kind::floating:
      return choices.flag() ? std::bit_cast<double>(eight_bytes(choices)) : choices.one_of(doubles);
    case Kind::text:
      return make_text(choices);
    case Kind::list:
      return make_list(choices, depth);
    case Kind::mapping:
      break;
  }
  return make_mapping(choices, depth);
}

}  // namespace tool_binding::fuzz
