// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/detail/cell.hpp"
#include "tool_binding/detail/export.hpp"
#include "tool_binding/detail/lifetime.hpp"
#include "tool_binding/detail/ranges.hpp"
#include "tool_binding/integer.hpp"
#include "tool_binding/ordered_map.hpp"
#include "tool_binding/text.hpp"

namespace tool_binding {

class Value;
[[nodiscard]] TOOL_BINDING_API bool operator==(const Value& left, const Value& right);

namespace detail {
[[nodiscard]] TOOL_BINDING_API const Cell& cell_of(const Value& value) noexcept;

/// A range of what values can be made of, other than the vector of values that a list consists of.
template <class Range>
concept OtherList = Listed<Range> && !Named<Range> && !std::same_as<Range, std::vector<Value>> &&
                    std::convertible_to<const ItemOf<Range>&, Value>;
}  // namespace detail

/// The arguments of a request by name, in their order; also the content of a mapping value.
using ArgumentMap = OrderedMap<Value>;

/// The seven kinds of a value. A boolean is never an integer, and an integer never a floating number.
enum class Kind : std::uint8_t { null, boolean, integer, floating, text, list, mapping };

/// What messages call a value of the kind, with its article where it has one: "null", "a boolean", "an integer",
/// "a floating number", "text", "a list", and for a mapping "an object", as in JSON.
[[nodiscard]] TOOL_BINDING_API std::string_view kind_words(Kind kind) noexcept;

/// A dynamic value as a request carries it, immutable, 16 bytes.
///
/// Null, booleans, 64-bit integers, doubles and texts of up to 15 bytes are held in the object itself. Longer texts,
/// wider integers, lists and mappings are held in shared immutable nodes, so that a copy costs the same whatever it
/// holds. Values may be nested to any depth: destroying, comparing and writing one does not recurse. Copies may be used
/// from different threads; one object that is assigned to needs its owner's care, as any other. A value that is moved
/// from is null.
///
/// Lists and mappings are made of what holds their items, or written as `Value::list({1, "a"})` and
/// `Value::mapping({{"a", 1}})`. Braces alone make neither: `Value{{"a", 1}}`, which could be meant as both, is refused
/// by the compiler, as are single characters, which are integers to C++.
class TOOL_BINDING_API Value {
 public:
  /// Null.
  Value() noexcept : cell_(detail::Tag::null) {}
  Value(std::nullptr_t) noexcept : Value() {}  // NOLINT(google-explicit-constructor)

  template <std::same_as<bool> Boolean>
  Value(Boolean value) noexcept  // NOLINT(google-explicit-constructor)
      : cell_(detail::Tag::boolean, std::uint64_t{value}) {}
  template <std::floating_point Number>
  Value(Number value) noexcept  // NOLINT(google-explicit-constructor)
      : cell_(detail::Tag::floating, static_cast<double>(value)) {}
  template <detail::WholeNumber Number>
  Value(Number value) : Value(Integer(value)) {}                // NOLINT(google-explicit-constructor)
  Value(const Integer& value) noexcept : cell_(value.cell_) {}  // NOLINT(google-explicit-constructor)
  Value(const Text& value) noexcept : cell_(value.cell_) {}     // NOLINT(google-explicit-constructor)
  template <detail::TextLike Bytes>
  Value(const Bytes& bytes) : cell_(std::string_view(bytes)) {}  // NOLINT(google-explicit-constructor)

  /// A list of `items`, in their order: std::vector<Value>.
  template <std::same_as<std::vector<Value>> Items>
  Value(Items items) : cell_(list_of(std::span(items))) {}  // NOLINT(google-explicit-constructor)
  /// A mapping with the entries of `entries`, in their order: ArgumentMap.
  template <std::same_as<ArgumentMap> Entries>
  Value(Entries entries) : cell_(mapping_of(std::move(entries))) {}  // NOLINT(google-explicit-constructor)

  /// A list of the items of any other range that values can be made of: std::vector<std::string>, std::span<const int>.
  template <detail::OtherList Range>
  Value(const Range& range)  // NOLINT(google-explicit-constructor)
      : Value(std::vector<Value>(std::begin(range), std::end(range))) {}
  /// A mapping with the entries of a range of pairs, as std::map is, in their order; set one after another, should a
  /// name occur twice.
  template <detail::Named Range>
  Value(const Range& range) : Value(ArgumentMap(range)) {}  // NOLINT(google-explicit-constructor)

  /// The value that `optional` holds, null where it holds none. A std::optional<Value> that is made of an optional of
  /// another type holds such a value too: its null is not the lack of one.
  template <std::convertible_to<Value> Content>
  Value(const std::optional<Content>& optional)  // NOLINT(google-explicit-constructor)
      : Value(optional ? Value(*optional) : Value()) {}

  /// A list, and a mapping, that is written out: `Value::mapping({{"limits", Value::list({1, 2.5})}})`.
  [[nodiscard]] static Value list(std::initializer_list<Value> items);
  [[nodiscard]] static Value mapping(std::initializer_list<ArgumentMap::Entry> entries);
  /// The same of items that are moved from, wherever they are.
  [[nodiscard]] static Value list_of_moved(std::span<Value> items);

  Value(const Value&) noexcept = default;
  Value(const Value& other, detail::WithoutNodes known) noexcept : cell_(other.cell_, known) {}
  Value(Value&& other) noexcept : cell_(other.cell_, detail::Tag::null) {}
  Value& operator=(Value other) noexcept {
    cell_.swap(other.cell_);
    return *this;
  }
  ~Value() = default;

  [[nodiscard]] Kind kind() const noexcept { return kinds[static_cast<std::size_t>(cell_.tag()) & 0x7FU]; }
  [[nodiscard]] bool is_null() const noexcept { return cell_.tag() == detail::Tag::null; }
  [[nodiscard]] bool is_boolean() const noexcept { return cell_.tag() == detail::Tag::boolean; }
  [[nodiscard]] bool is_integer() const noexcept {
    return cell_.tag() == detail::Tag::integer || cell_.tag() == detail::Tag::integer_node;
  }
  [[nodiscard]] bool is_floating() const noexcept { return cell_.tag() == detail::Tag::floating; }
  [[nodiscard]] bool is_text() const noexcept { return cell_.holds_text(); }
  [[nodiscard]] bool is_list() const noexcept { return cell_.tag() == detail::Tag::list_node; }
  [[nodiscard]] bool is_mapping() const noexcept { return cell_.tag() == detail::Tag::mapping_node; }

  /// The content. Each throws TypeError where the value is of another kind: "the value is text '5', not an integer".
  /// Views and references live as long as this object is neither assigned to, moved nor destroyed; a temporary's
  /// content is handed out as an object of its own.
  [[nodiscard]] bool boolean() const {
    require(is_boolean(), Kind::boolean);
    return cell_.content<std::uint64_t>() != 0;
  }
  [[nodiscard]] Integer integer() const {
    require(is_integer(), Kind::integer);
    return Integer(cell_);
  }
  [[nodiscard]] double floating() const {
    require(is_floating(), Kind::floating);
    return cell_.content<double>();
  }
  [[nodiscard]] std::string_view text() const& TOOL_BINDING_LIFETIMEBOUND {
    require(is_text(), Kind::text);
    return cell_.text();
  }
  [[nodiscard]] std::string text() && { return std::string(text()); }
  [[nodiscard]] Text shared_text() const {
    require(is_text(), Kind::text);
    return Text(cell_);
  }
  [[nodiscard]] std::span<const Value> list() const& TOOL_BINDING_LIFETIMEBOUND;
  [[nodiscard]] std::vector<Value> list() &&;
  [[nodiscard]] const ArgumentMap& mapping() const& TOOL_BINDING_LIFETIMEBOUND;
  [[nodiscard]] ArgumentMap mapping() &&;

  /// What `visitor` returns for the content: nullptr, bool, Integer, double, std::string_view, std::span<const Value>
  /// or const ArgumentMap&. It takes each of them, and returns the same type for all.
  template <class Visitor>
  decltype(auto) visit(Visitor&& visitor) const& {
    switch (kind()) {
      case Kind::boolean:
        return visitor(boolean());
      case Kind::integer:
        return visitor(integer());
      case Kind::floating:
        return visitor(floating());
      case Kind::text:
        return visitor(text());
      case Kind::list:
        return visitor(list());
      case Kind::mapping:
        return visitor(mapping());
      case Kind::null:
        break;
    }
    return visitor(nullptr);
  }

  /// The integer where the value is one that fits 64 bits.
  [[nodiscard]] std::optional<std::int64_t> to_int64() const noexcept {
    return cell_.tag() == detail::Tag::integer ? std::optional(cell_.content<std::int64_t>()) : std::nullopt;
  }

  /// Whether the value is a text that equals `text`.
  [[nodiscard]] bool is(const Text& text) const noexcept { return is_text() && detail::same_text(cell_, text.cell_); }

  /// Equal kinds and equal contents: the integer 5 and the floating number 5.0 differ, floating numbers compare as
  /// IEEE 754 has it (a NaN equals nothing), mappings are equal when they hold equal entries in the same order.
  /// Throws std::bad_alloc when no memory is left for the comparison of nested values.
  friend TOOL_BINDING_API bool operator==(const Value& left, const Value& right);

  /// Writes the plain form.
  friend TOOL_BINDING_API std::ostream& operator<<(std::ostream& out, const Value& value);

  friend void swap(Value& left, Value& right) noexcept { left.cell_.swap(right.cell_); }

 private:
  friend class KeywordArgument;
  friend struct detail::NodeAccess;
  friend const detail::Cell& detail::cell_of(const Value& value) noexcept;
  /// The kind that belongs to a tag, without its highest bit.
  static constexpr Kind kinds[] = {Kind::text,    Kind::text,     Kind::text, Kind::text,    Kind::text, Kind::text,
                                   Kind::text,    Kind::text,     Kind::text, Kind::text,    Kind::text, Kind::text,
                                   Kind::text,    Kind::text,     Kind::text, Kind::text,    Kind::null, Kind::boolean,
                                   Kind::integer, Kind::floating, Kind::null, Kind::null,    Kind::null, Kind::null,
                                   Kind::text,    Kind::integer,  Kind::list, Kind::mapping, Kind::null};

  explicit Value(const detail::Cell& cell) noexcept : cell_(cell) {}
  explicit Value(detail::Cell&& cell) noexcept : cell_(cell, detail::Tag::null) {}

  static detail::Cell list_of(std::span<Value> items);
  static detail::Cell mapping_of(ArgumentMap&& entries);

  void require(bool holds, Kind wanted) const {
    if (!holds) {
      throw_wrong_kind(wanted);
    }
  }
  [[noreturn]] void throw_wrong_kind(Kind wanted) const;

  detail::Cell cell_;
};

static_assert(sizeof(Value) == 16);

inline const detail::Cell& detail::cell_of(const Value& value) noexcept { return value.cell_; }

/// The plain form: how a message, or a list of texts, inserts a value as text. A text is unchanged, 5.0 is "5.0",
/// true "True", null "None", a list "[1, 'a']", a mapping "{'a': 1}". Floating numbers take the fewest digits that read
/// back as the same double (IEEE 754).
[[nodiscard]] TOOL_BINDING_API Text plain_form(const Value& value);

/// The quoted form: how a message shows a value as it was sent. A text is put between quotes with what cannot be
/// printed escaped; any other value as in its plain form.
[[nodiscard]] TOOL_BINDING_API std::string quoted_form(const Value& value);

}  // namespace tool_binding

namespace std {

/// Equal for equal values, whose kinds are the same: 1, 1.0 and true differ. Throws std::bad_alloc when no memory is
/// left for the walk through nested values.
template <>
struct hash<tool_binding::Value> {
  [[nodiscard]] std::size_t operator()(const tool_binding::Value& value) const;
};

}  // namespace std
