// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/detail/item_type.hpp"
#include "tool_binding/detail/lifetime.hpp"
#include "tool_binding/value.hpp"

/// A handler as binding sees it, and the keyword arguments that it is called with.
///
/// A handler declares its parameters next to its function. What the daemon supplies itself (the repository, its root,
/// the engines) are context items: the layer passes them along and never looks into one.
namespace tool_binding {

struct ArgumentType;
class ToolSpec;

/// The base classes as which a context item is handed out as well: `KeywordArgument::context(file_store,
/// bases<Store>)`.
template <class... Bases>
struct BaseClasses {};
template <class... Bases>
inline constexpr BaseClasses<Bases...> bases = {};

/// One keyword argument: a bound `Value`, or a context item of the daemon's. 16 bytes, copied without copying content.
/// One that is moved from is a bound null.
class TOOL_BINDING_API KeywordArgument {
 public:
  KeywordArgument(Value value) noexcept : held_(std::move(value)) {}  // NOLINT(google-explicit-constructor)

  KeywordArgument(const Value& value, detail::WithoutNodes known) noexcept : held_(value, known) {}

  /// A context item that shares `item`, whatever its type. It is handed out as `Item`, as each of `Bases`, and as the
  /// constants of these.
  template <class Item, class... Bases>
  [[nodiscard]] static KeywordArgument context(std::shared_ptr<Item> item, BaseClasses<Bases...> /*as_well*/) {
    return KeywordArgument(std::move(item), detail::ItemViews<Item, Bases...>::rows);
  }
  template <class Item>
  [[nodiscard]] static KeywordArgument context(std::shared_ptr<Item> item) {
    return context(std::move(item), bases<>);
  }

  /// A context item that refers to `item`, which the daemon keeps alive as long as any copy of it.
  template <class Item, class... Bases>
  [[nodiscard]] static KeywordArgument context(Item& item, BaseClasses<Bases...> as_well) {
    return context(std::shared_ptr<Item>(std::shared_ptr<void>(), &item), as_well);
  }
  template <class Item>
  [[nodiscard]] static KeywordArgument context(Item& item) {
    return context(item, bases<>);
  }

  [[nodiscard]] bool is_context() const noexcept { return held_.cell_.tag() == detail::Tag::context_node; }

  /// Whether `item<Item>()` hands something out.
  template <class Item>
  [[nodiscard]] bool is_item() const noexcept {
    return is_item(detail::item_type<Item>);
  }
  [[nodiscard]] bool is_item(const detail::ItemType& type) const noexcept { return find_item(type) != nullptr; }

  /// The type with which a context item was made, as the compiler spells it; empty for a bound argument.
  [[nodiscard]] std::string_view item_type_name() const noexcept;

  /// The bound argument, as long as this object lives. Throws TypeError for a context item.
  [[nodiscard]] const Value& value() const TOOL_BINDING_LIFETIMEBOUND {
    if (is_context()) {
      refuse_item();
    }
    return held_;
  }

  /// The same, null where `value` throws.
  [[nodiscard]] const Value* value_if() const noexcept { return is_context() ? nullptr : &held_; }

  /// The context item, as long as this object lives. `Item` is the type that it was made with, or a base class that it
  /// was made with, or the constant of one of these. Throws TypeError for a bound argument and for any other type.
  template <class Item>
  [[nodiscard]] Item& item() const {
    return *static_cast<Item*>(item_of(detail::item_type<Item>));
  }

  /// The same, null where `item` throws.
  template <class Item>
  [[nodiscard]] Item* item_if() const noexcept {
    return static_cast<Item*>(find_item(detail::item_type<Item>));
  }

  /// The same as `item` with a share in its ownership; none, where the daemon offered a reference and keeps the item
  /// alive.
  template <class Item>
  [[nodiscard]] std::shared_ptr<Item> shared_item() const {
    Item* const found = &item<Item>();
    return std::shared_ptr<Item>(owner(), found);
  }

  /// Two bound arguments compare as values; a context item equals its own copies only.
  friend bool operator==(const KeywordArgument& left, const KeywordArgument& right) { return left.equals(right); }

 private:
  KeywordArgument(std::shared_ptr<const volatile void> item, std::span<const detail::ItemView> views);
  [[nodiscard]] void* find_item(const detail::ItemType& type) const noexcept;
  [[nodiscard]] void* item_of(const detail::ItemType& type) const;
  [[noreturn]] void refuse_item() const;
  [[nodiscard]] const std::shared_ptr<const volatile void>& owner() const noexcept;
  [[nodiscard]] bool equals(const KeywordArgument& other) const;

  Value held_;
};

/// The keyword arguments of a handler, or the context that a daemon offers to all of them, by name.
using KeywordArguments = OrderedMap<KeywordArgument>;

/// One declared parameter of a handler.
struct Parameter {
  enum class Kind : std::uint8_t {
    NAMED,           ///< receives the keyword argument of its own name
    VAR_POSITIONAL,  ///< collects further positional values; its name is not a keyword
    VAR_KEYWORD,     ///< collects any keyword argument
  };

  Text name;  ///< unique within the handler
  Kind kind = Kind::NAMED;
  /// As what the handler's function takes the argument, or the context item, of that name; both null where it reads the
  /// keyword itself. What is said here is checked when the tool is declared.
  const ArgumentType* type = nullptr;
  const detail::ItemType* item = nullptr;
};

class Parameters;
namespace detail {
class NameIndex;
template <class PlaceOf>
void add_context(KeywordArguments& keywords, const Parameters& parameters, const KeywordArguments& context,
                 const PlaceOf& place_of);
}  // namespace detail

/// The parameters of a handler, in declaration order: a list that is made once and then only read. Their names are
/// indexed as it is made, so that no call compares what a daemon offers with all of them.
class TOOL_BINDING_API Parameters {
 public:
  Parameters() noexcept = default;
  Parameters(std::vector<Parameter> listed);  // NOLINT(google-explicit-constructor)
  Parameters(std::initializer_list<Parameter> listed) : Parameters(std::vector<Parameter>(listed)) {}

  [[nodiscard]] std::size_t size() const noexcept { return listed_.size(); }
  [[nodiscard]] bool empty() const noexcept { return listed_.empty(); }
  [[nodiscard]] const Parameter& operator[](std::size_t place) const noexcept { return listed_[place]; }
  [[nodiscard]] auto begin() const noexcept { return listed_.begin(); }
  [[nodiscard]] auto end() const noexcept { return listed_.end(); }

  /// Whether a handler with these parameters takes that keyword: one is of that name and NAMED, or takes any.
  [[nodiscard]] bool take(const Text& keyword) const noexcept;

 private:
  template <class PlaceOf>
  friend void detail::add_context(KeywordArguments&, const Parameters&, const KeywordArguments&, const PlaceOf&);

  std::vector<Parameter> listed_;
  std::shared_ptr<const detail::NameIndex> named_;  ///< null where none is NAMED
  bool take_any_ = false;
};

/// What a handler declares. One that is moved from is to be assigned to before it is read.
struct Signature {
  Parameters parameters = {};
  /// Whether the function takes what is listed here and nothing else, so that a parameter which the tool declares and
  /// this leaves out is a fault.
  bool complete = false;

  /// The parameters of these names: `Signature::named("query", "limit")`.
  template <std::convertible_to<Text>... Names>
  [[nodiscard]] static Signature named(const Names&... names) {
    return {.parameters = {Parameter{.name = Text(names)}...}};
  }
  /// The one parameter `name`, which collects any keyword argument.
  [[nodiscard]] static Signature any_keyword(Text name = "keywords") {
    return {.parameters = {{.name = std::move(name), .kind = Parameter::Kind::VAR_KEYWORD}}};
  }
};

/// The function that answers a tool: `Handler{Signature::named("query", "store"), search}`. The layer reads its
/// signature; calling it is the daemon's business. One that is moved from is to be assigned to before it is used.
struct Handler {
  using Function = std::function<Value(const KeywordArguments&)>;

  Signature signature = {};
  Function function = {};
  /// The function as it answers one tool, whose defaults and name it knows; made when the tool is declared. Where there
  /// is none, `function` answers any tool.
  std::function<Function(const ToolSpec& tool)> for_tool = {};
};

}  // namespace tool_binding
