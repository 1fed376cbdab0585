// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "tool_binding/argument_type.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/handler.hpp"
#include "tool_binding/value.hpp"

/// For daemons that hold their requests in `nlohmann::json` or `nlohmann::ordered_json`: their values become the
/// layer's and the layer's become theirs, without a text in between. This library is a header only.
///
/// `to_value`, `to_arguments` and `to_json` say what is converted; `json.get<Value>()`, `json.get<ArgumentMap>()` and
/// `json(value)` do the same.
///
/// A plain `json` keeps the members of an object sorted by name, so that notes and problems come in that order; an
/// `ordered_json` keeps the order in which they were sent. Integers of 64 bits keep every digit, signed and unsigned.
/// NaN and the infinities stay what they are in memory; that library writes them as null. Names and texts keep their
/// bytes; that library writes well-formed UTF-8 only.
namespace tool_binding::nlohmann_json {

/// `nlohmann::json`, `nlohmann::ordered_json` and other types made of the same template.
template <class Json>
concept AnyJson = requires(const Json& json) {
  typename Json::object_t;
  typename Json::array_t;
  { json.type() } -> std::same_as<::nlohmann::json::value_t>;
};

/// How deep lists and objects may be nested, in both directions: that library writes and copies its values by
/// recursion.
inline constexpr std::size_t most_levels = 1000;

/// A JSON value as the layer's. Throws ValueError where it is nested deeper than `most_levels`, and TypeError for
/// binary data and for what a parser discarded, which are no values of JSON.
template <AnyJson Json>
[[nodiscard]] Value to_value(const Json& json);

/// The arguments of a request, in the order of the object's members. Throws TypeError for anything but an object, and
/// what `to_value` throws.
template <AnyJson Json>
[[nodiscard]] ArgumentMap to_arguments(const Json& json);

/// A value of the layer's as a JSON value. An integer beyond 64 bits becomes the nearest double, as that library reads
/// such a numeral too. Throws std::overflow_error for one beyond the largest double, and ValueError for a value that is
/// nested deeper than `most_levels`.
template <AnyJson Json = ::nlohmann::json>
[[nodiscard]] Json to_json(const Value& value);

/// Admitted or bound arguments as an object, in their order where `Json` keeps one.
template <AnyJson Json = ::nlohmann::json>
[[nodiscard]] Json to_json(const ArgumentMap& arguments);

/// The bound arguments among a handler's keywords. Context items are the daemon's own objects, and left out.
template <AnyJson Json = ::nlohmann::json>
[[nodiscard]] Json to_json(const KeywordArguments& keywords);

// What follows is how it is done.

namespace detail {

[[nodiscard]] inline std::size_t one_level_less(std::size_t levels) {
  if (levels == 0) {
    throw ValueError("the value is nested deeper than " + std::to_string(most_levels) + " levels");
  }
  return levels - 1;
}

/// Adds a member that the object does not have yet. An ordered object would search its members for it.
template <class Object, class Json>
void add_member(Object& object, std::string_view name, Json&& value) {
  if constexpr (requires { object.emplace_back(name, std::forward<Json>(value)); }) {
    object.emplace_back(name, std::forward<Json>(value));
  } else {
    object.emplace(name, std::forward<Json>(value));
  }
}

template <AnyJson Json>
[[nodiscard]] Value value_of(const Json& json, std::size_t levels);

template <AnyJson Json>
[[nodiscard]] ArgumentMap entries_of(const Json& json, std::size_t levels) {
  const std::size_t inner = one_level_less(levels);
  ArgumentMap entries;
  entries.reserve(json.size());
  for (const auto& [name, member] : json.template get_ref<const typename Json::object_t&>()) {
    entries.set(std::string_view(name), value_of(member, inner));
  }
  return entries;
}

template <AnyJson Json>
[[nodiscard]] std::vector<Value> items_of(const Json& json, std::size_t levels) {
  const std::size_t inner = one_level_less(levels);
  std::vector<Value> items;
  items.reserve(json.size());
  for (const Json& item : json) {
    items.push_back(value_of(item, inner));
  }
  return items;
}

template <AnyJson Json>
[[nodiscard]] Value value_of(const Json& json, std::size_t levels) {
  using Type = ::nlohmann::json::value_t;
  switch (json.type()) {
    case Type::null:
      return nullptr;
    case Type::boolean:
      return json.template get_ref<const typename Json::boolean_t&>();
    case Type::number_integer:
      return json.template get_ref<const typename Json::number_integer_t&>();
    case Type::number_unsigned:
      return json.template get_ref<const typename Json::number_unsigned_t&>();
    case Type::number_float:
      return json.template get_ref<const typename Json::number_float_t&>();
    case Type::string:
      return std::string_view(json.template get_ref<const typename Json::string_t&>());
    case Type::array:
      return items_of(json, levels);
    case Type::object:
      return entries_of(json, levels);
    case Type::binary:
    case Type::discarded:
      break;
  }
  throw TypeError(std::string("a value of the type ") + json.type_name() + " cannot be an argument");
}

template <AnyJson Json>
[[nodiscard]] Json json_of(const Value& value, std::size_t levels);

template <AnyJson Json>
[[nodiscard]] Json object_of(const ArgumentMap& entries, std::size_t levels) {
  const std::size_t inner = one_level_less(levels);
  typename Json::object_t members;
  for (const ArgumentMap::Entry& entry : entries) {
    add_member(members, entry.name, json_of<Json>(entry.value, inner));
  }
  return Json(std::move(members));
}

template <AnyJson Json>
[[nodiscard]] Json array_of(const Value& list, std::size_t levels) {
  const std::size_t inner = one_level_less(levels);
  typename Json::array_t items;
  items.reserve(list.list().size());
  for (const Value& item : list.list()) {
    items.push_back(json_of<Json>(item, inner));
  }
  return Json(std::move(items));
}

/// Between 2^63 and 2^64 - 1 that library has an unsigned integer.
template <AnyJson Json>
[[nodiscard]] Json integer_of(const Value& value) {
  if (const std::optional<std::int64_t> number = value.to_int64()) {
    return Json(*number);
  }
  if (std::uint64_t number = 0; Reading<std::uint64_t>::read(value, number)) {
    return Json(number);
  }
  return Json(value.integer().to_double());
}

template <AnyJson Json>
[[nodiscard]] Json json_of(const Value& value, std::size_t levels) {
  switch (value.kind()) {
    case Kind::boolean:
      return Json(value.boolean());
    case Kind::integer:
      return integer_of<Json>(value);
    case Kind::floating:
      return Json(value.floating());
    case Kind::text:
      return Json(typename Json::string_t(value.text()));
    case Kind::list:
      return array_of<Json>(value, levels);
    case Kind::mapping:
      return object_of<Json>(value.mapping(), levels);
    case Kind::null:
      break;
  }
  return Json(nullptr);
}

}  // namespace detail

template <AnyJson Json>
Value to_value(const Json& json) {
  return detail::value_of(json, most_levels);
}

template <AnyJson Json>
ArgumentMap to_arguments(const Json& json) {
  if (!json.is_object()) {
    throw TypeError(std::string("the arguments must be an object, and are of the type ") + json.type_name());
  }
  return detail::entries_of(json, most_levels);
}

template <AnyJson Json>
Json to_json(const Value& value) {
  return detail::json_of<Json>(value, most_levels);
}

template <AnyJson Json>
Json to_json(const ArgumentMap& arguments) {
  return detail::object_of<Json>(arguments, most_levels);
}

template <AnyJson Json>
Json to_json(const KeywordArguments& keywords) {
  ArgumentMap bound;
  for (const KeywordArguments::Entry& entry : keywords) {
    if (const Value* const value = entry.value.value_if()) {
      bound.append(entry.name, *value);
    }
  }
  return to_json<Json>(bound);
}

}  // namespace tool_binding::nlohmann_json

/// The same conversions where that library looks for them.
namespace nlohmann {

template <>
struct adl_serializer<tool_binding::Value, void> {
  template <class Json>
  static tool_binding::Value from_json(const Json& json) {
    return tool_binding::nlohmann_json::to_value(json);
  }
  template <class Json>
  static void to_json(Json& json, const tool_binding::Value& value) {
    json = tool_binding::nlohmann_json::to_json<Json>(value);
  }
};

template <>
struct adl_serializer<tool_binding::ArgumentMap, void> {
  template <class Json>
  static tool_binding::ArgumentMap from_json(const Json& json) {
    return tool_binding::nlohmann_json::to_arguments(json);
  }
  template <class Json>
  static void to_json(Json& json, const tool_binding::ArgumentMap& arguments) {
    json = tool_binding::nlohmann_json::to_json<Json>(arguments);
  }
};

}  // namespace nlohmann
