// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <typeindex>
#include <utility>
#include <vector>

#include "tool_binding/value.hpp"

#pragma GCC visibility push(default)

/// A handler as binding sees it, and the keyword arguments that it is called with.
///
/// A handler declares its parameters next to its function. What the daemon supplies itself (the repository, its root,
/// the engines) are context items: the layer passes them along and never looks into one.
namespace tool_binding {

/// One keyword argument: a bound `Value`, or a context item of the daemon's. 16 bytes, copied without copying content.
class KeywordArgument {
 public:
  KeywordArgument(Value value) noexcept : held_(std::move(value)) {}  // NOLINT(google-explicit-constructor)

  /// A context item that shares `item`, whatever its type.
  template <class Item>
  [[nodiscard]] static KeywordArgument context(std::shared_ptr<Item> item) {
    return KeywordArgument(std::move(item), typeid(Item*));
  }

  /// A context item that refers to `item`, which the daemon keeps alive as long as any copy of it.
  template <class Item>
  [[nodiscard]] static KeywordArgument context(Item& item) {
    return context(std::shared_ptr<Item>(std::shared_ptr<void>(), &item));
  }

  [[nodiscard]] bool is_context() const noexcept { return held_.cell_.tag() == detail::Tag::context_node; }

  /// The bound argument, as long as this object lives. Throws TypeError for a context item.
  [[nodiscard]] const Value& value() const;

  /// The context item, as long as this object lives. `Item` is exactly the type that it was made with, its const
  /// included. Throws TypeError for a bound argument and for an item of another type.
  template <class Item>
  [[nodiscard]] Item& item() const {
    return *static_cast<Item*>(item_of(typeid(Item*)));
  }

  /// Two bound arguments compare as values; a context item equals its own copies only.
  friend bool operator==(const KeywordArgument& left, const KeywordArgument& right) { return left.equals(right); }

 private:
  KeywordArgument(std::shared_ptr<const volatile void> item, std::type_index type);
  [[nodiscard]] void* item_of(std::type_index type) const;
  [[nodiscard]] bool equals(const KeywordArgument& other) const;

  Value held_;
};

/// The keyword arguments of a handler, or the context that a daemon offers to all of them, by name.
using KeywordArguments = OrderedMap<KeywordArgument>;

/// One declared parameter of a handler.
struct Parameter {
  enum class Kind : std::uint8_t {
    NAMED,           ///< receives the keyword argument of its own name
    VAR_POSITIONAL,  ///< collects further positional values; its name is no keyword
    VAR_KEYWORD,     ///< collects any keyword argument
  };

  Text name;  ///< unique within the handler
  Kind kind = Kind::NAMED;
};

/// The parameters that a handler declares, in declaration order.
struct Signature {
  std::vector<Parameter> parameters;
};

/// The function that answers a tool. The layer reads its signature; calling it is the daemon's business.
struct Handler {
  Signature signature;
  std::function<Value(const KeywordArguments&)> function;
};

}  // namespace tool_binding

#pragma GCC visibility pop
