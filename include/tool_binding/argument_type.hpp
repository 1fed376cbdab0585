// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/detail/item_type.hpp"
#include "tool_binding/value.hpp"

/// The C++ types as which a handler takes its arguments.
///
/// `bool`; every integer type, `double` and `float`, within their ranges; `std::string`, `std::string_view` and `Text`;
/// `Integer`; `Value`; enumerations; `std::vector` of any of these, and `std::span<const Value>`; `std::optional` of
/// any of these, which null makes empty. A view lives as long as the keywords that it was taken from.
namespace tool_binding {

/// One value of an enumeration, and the text that stands for it in a request. An enumeration is taken as an argument
/// once a function of its namespace names its texts:
///
///     enum class Order { oldest, newest };
///     constexpr auto enumerators(Order) {
///       return std::to_array<tool_binding::Enumerator<Order>>({{"oldest", Order::oldest}, {"newest", Order::newest}});
///     }
template <class Enumeration>
struct Enumerator {
  std::string_view text;
  Enumeration value;
};

/// A set of kinds of values.
class TOOL_BINDING_API Kinds {
 public:
  template <std::same_as<Kind>... Each>
  explicit constexpr Kinds(Each... kinds) noexcept : bits_((0U | ... | bit(kinds))) {}

  [[nodiscard]] static constexpr Kinds all() noexcept { return Kinds().with_bits(0x7FU); }
  [[nodiscard]] constexpr Kinds with(Kind kind) const noexcept { return with_bits(bits_ | bit(kind)); }
  [[nodiscard]] constexpr bool contains(Kind kind) const noexcept { return (bits_ & bit(kind)) != 0; }

 private:
  static constexpr unsigned bit(Kind kind) noexcept { return 1U << static_cast<unsigned>(kind); }
  [[nodiscard]] constexpr Kinds with_bits(unsigned bits) const noexcept {
    Kinds changed = *this;
    changed.bits_ = bits;
    return changed;
  }

  unsigned bits_;
};

/// How arguments are taken as `Type`. To take arguments as a type of one's own, specialize it with these members:
///
///     static constexpr Kinds kinds;                      // the kinds of values that it is made of
///     static bool read(const Value& value, Type& out);   // whether `value`, of any kind, could be read into `out`
///     static std::string name();                         // the type, as messages spell it
///     static std::string wanted();                       // what a caller may send: "a date such as 2024-05-01"
template <class Type>
struct Reading;

/// What is known of a type of arguments without naming it; made of its Reading.
struct ArgumentType {
  Kinds kinds;
  bool (*reads)(const Value& value);
  std::string (*name)();
  std::string (*wanted)();
  const ArgumentType* items;     ///< of a list; null for any other type, and for a list of anything
  std::vector<Text> (*texts)();  ///< of an enumeration, else null
};

namespace detail {

template <class Type>
[[nodiscard]] bool reads(const Value& value) {
  Type out{};
  return Reading<Type>::read(value, out);
}

template <class Type>
[[nodiscard]] constexpr ArgumentType made_argument_type() noexcept {
  ArgumentType made = {Reading<Type>::kinds, reads<Type>, Reading<Type>::name, Reading<Type>::wanted, nullptr, nullptr};
  if constexpr (requires { Reading<Type>::items; }) {
    made.items = Reading<Type>::items;
  }
  if constexpr (requires { Reading<Type>::texts; }) {
    made.texts = Reading<Type>::texts;
  }
  return made;
}

/// The value of an integer between 2^63 and 2^64 - 1, none for any other.
[[nodiscard]] TOOL_BINDING_API std::optional<std::uint64_t> upper_half(const Value& integer);
/// The nearest double to a value that is an integer, none where it is beyond the largest.
[[nodiscard]] TOOL_BINDING_API std::optional<double> nearest_double(const Value& integer);

template <class Number>
concept IntegerType = std::integral<Number> && sizeof(Number) <= sizeof(std::int64_t) && !std::same_as<Number, bool> &&
                      !std::same_as<Number, char> && !std::same_as<Number, wchar_t> && !std::same_as<Number, char8_t> &&
                      !std::same_as<Number, char16_t> && !std::same_as<Number, char32_t>;

template <class Type>
concept Enumerated = std::is_enum_v<Type> && requires(Type value) {
  enumerators(value);
};

}  // namespace detail

/// The one description of a type.
template <class Type>
TOOL_BINDING_API inline constexpr ArgumentType argument_type = detail::made_argument_type<Type>();

template <>
struct Reading<Value> {
  static constexpr Kinds kinds = Kinds::all();
  static bool read(const Value& value, Value& out) {
    out = value;
    return true;
  }
  static std::string name() { return "tool_binding::Value"; }
  static std::string wanted() { return "anything"; }
};

template <>
struct Reading<bool> {
  static constexpr Kinds kinds{Kind::boolean};
  static bool read(const Value& value, bool& out) { return value.is_boolean() && (out = value.boolean(), true); }
  static std::string name() { return "bool"; }
  static std::string wanted() { return "true or false"; }
};

template <detail::IntegerType Number>
struct Reading<Number> {
  static constexpr Kinds kinds{Kind::integer};
  static bool read(const Value& value, Number& out) {
    const std::optional<std::int64_t> number = value.to_int64();
    if (number && std::in_range<Number>(*number)) {
      out = static_cast<Number>(*number);
      return true;
    }
    if constexpr (std::unsigned_integral<Number> && sizeof(Number) == sizeof(std::uint64_t)) {
      if (const std::optional<std::uint64_t> upper = detail::upper_half(value)) {
        out = *upper;
        return true;
      }
    }
    return false;
  }
  static std::string name() { return std::string(detail::type_name<Number>()); }
  static std::string wanted() {
    return "a whole number from " + std::to_string(std::numeric_limits<Number>::min()) + " to " +
           std::to_string(std::numeric_limits<Number>::max());
  }
};

template <>
struct Reading<Integer> {
  static constexpr Kinds kinds{Kind::integer};
  static bool read(const Value& value, Integer& out) { return value.is_integer() && (out = value.integer(), true); }
  static std::string name() { return "tool_binding::Integer"; }
  static std::string wanted() { return "a whole number"; }
};

/// Of an integer the nearest number is taken.
template <class Number>
requires std::same_as<Number, double> || std::same_as<Number, float>
struct Reading<Number> {
  static constexpr Kinds kinds{Kind::floating, Kind::integer};
  static bool read(const Value& value, Number& out) {
    const std::optional<double> number = value.is_floating()  ? std::optional(value.floating())
                                         : value.is_integer() ? detail::nearest_double(value)
                                                              : std::nullopt;
    if (!number) {
      return false;
    }
    if constexpr (std::same_as<Number, float>) {
      constexpr double largest = std::numeric_limits<float>::max();
      if (std::numeric_limits<double>::max() >= std::abs(*number) && std::abs(*number) > largest) {
        return false;
      }
    }
    out = static_cast<Number>(*number);
    return true;
  }
  static std::string name() { return std::same_as<Number, float> ? "float" : "double"; }
  static std::string wanted() {
    return std::same_as<Number, float> ? "a number that is not beyond 3.4028235e+38 on either side" : "a number";
  }
};

template <class Type>
requires std::same_as<Type, std::string_view> || std::same_as<Type, std::string> || std::same_as<Type, Text>
struct Reading<Type> {
  static constexpr Kinds kinds{Kind::text};
  static bool read(const Value& value, Type& out) {
    if (!value.is_text()) {
      return false;
    }
    if constexpr (std::same_as<Type, Text>) {
      out = value.shared_text();
    } else {
      out = value.text();
    }
    return true;
  }
  static std::string name() {
    return std::same_as<Type, Text>          ? "tool_binding::Text"
           : std::same_as<Type, std::string> ? "std::string"
                                             : "std::string_view";
  }
  static std::string wanted() { return "text"; }
};

template <detail::Enumerated Enumeration>
struct Reading<Enumeration> {
  static constexpr Kinds kinds{Kind::text};
  static constexpr auto rows = enumerators(Enumeration{});
  static bool read(const Value& value, Enumeration& out) {
    if (value.is_text()) {
      for (const Enumerator<Enumeration>& row : rows) {
        if (row.text == value.text()) {
          out = row.value;
          return true;
        }
      }
    }
    return false;
  }
  static std::vector<Text> texts() {
    std::vector<Text> all;
    for (const Enumerator<Enumeration>& row : rows) {
      all.emplace_back(row.text);
    }
    return all;
  }
  static std::string name() { return std::string(detail::type_name<Enumeration>()); }
  static std::string wanted() {
    std::string words = "one of: ";
    for (const Enumerator<Enumeration>& row : rows) {
      words.append(words.ends_with(": ") ? "" : ", ").append(row.text);
    }
    return words;
  }
};

template <class Item>
struct Reading<std::vector<Item>> {
  static constexpr Kinds kinds{Kind::list};
  static constexpr const ArgumentType* items = &argument_type<Item>;
  static bool read(const Value& value, std::vector<Item>& out) {
    if (!value.is_list()) {
      return false;
    }
    out.reserve(value.list().size());
    for (const Value& item : value.list()) {
      Item taken{};
      if (!Reading<Item>::read(item, taken)) {
        return false;
      }
      out.push_back(std::move(taken));
    }
    return true;
  }
  static std::string name() { return "std::vector<" + Reading<Item>::name() + ">"; }
  static std::string wanted() { return "a list, each item " + Reading<Item>::wanted(); }
};

template <>
struct Reading<std::span<const Value>> {
  static constexpr Kinds kinds{Kind::list};
  static bool read(const Value& value, std::span<const Value>& out) {
    return value.is_list() && (out = value.list(), true);
  }
  static std::string name() { return "std::span<const tool_binding::Value>"; }
  static std::string wanted() { return "a list"; }
};

template <class Type>
struct Reading<std::optional<Type>> {
  static constexpr Kinds kinds = Reading<Type>::kinds.with(Kind::null);
  static constexpr const ArgumentType* items = argument_type<Type>.items;
  static constexpr auto texts = argument_type<Type>.texts;
  static bool read(const Value& value, std::optional<Type>& out) {
    return value.is_null() || Reading<Type>::read(value, out.emplace());
  }
  static std::string name() { return "std::optional<" + Reading<Type>::name() + ">"; }
  static std::string wanted() { return Reading<Type>::wanted(); }
};

}  // namespace tool_binding
