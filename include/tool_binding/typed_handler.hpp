// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

#include "tool_binding/argument_type.hpp"
#include "tool_binding/detail/export.hpp"
#include "tool_binding/handler.hpp"
#include "tool_binding/tool_registry.hpp"

/// Handlers that are called with their own types.
///
/// One list says what a function takes; the handler's signature and its call both come from it, and `declare_tools`
/// checks it against the tool:
///
///     std::string list(std::string_view action, std::optional<std::string> state, int limit, Store& store);
///
///     handler(list, argument<std::string_view>("action"), argument<std::optional<std::string>>("state"),
///             argument<int>("limit"), item<Store>("store"))
///
/// A parameter whose default differs by action arrives with the default of the action that the call runs. What a caller
/// sent and the type cannot hold is refused by one ArgumentError that names every such argument, in the words of
/// admission. Whatever else does not fit is the daemon's own fault, and never happens to a handler that was checked:
/// LookupError for a keyword that the call does not have, TypeError for one of another kind or type.
namespace tool_binding {

/// An argument that a function takes as `Type`, of the types that argument_type.hpp names. Made by `argument`.
template <class Type>
struct Argument {
  Text name;
};

/// A context item that a function takes: `item<Store>` as `Store&`, `item<const Store>` as `const Store&`, and
/// `item<std::shared_ptr<Store>>` as a share in it. Made by `item`.
template <class Item>
struct ContextItem {
  Text name;
};

/// All keywords of the call, which a function takes as `const KeywordArguments&`. Made by `rest`.
struct Rest {};

template <class Type>
[[nodiscard]] Argument<Type> argument(Text name) {
  return {std::move(name)};
}

template <class Item>
[[nodiscard]] ContextItem<Item> item(Text name) {
  return {std::move(name)};
}

/// A handler that lists it need not list every parameter of its tool, and gets every context item.
[[nodiscard]] inline Rest rest() { return {}; }

namespace detail {

/// What a function takes, and as the handler of which tool.
struct TOOL_BINDING_API Listing {
  struct Row {
    Text name;
    std::size_t place;  ///< where a call's keywords most likely have it
    const ParamSpec*
        differs;  ///< what the tool declares under the name, where its default differs by action, else null
  };

  Signature signature;
  std::optional<ToolSpec> tool;  ///< none where the handler is called as no tool's
  std::vector<Row> rows;         ///< for each parameter of the signature

  explicit Listing(Signature listed);
  Listing(Signature listed, const ToolSpec& answered);
};

/// One call of a function that lists what it takes. Lives for the call.
struct TOOL_BINDING_API TypedCall {
  const KeywordArguments& keywords;
  const Listing& listing;

  /// The keyword of the parameter at `place` of the signature.
  [[nodiscard]] const KeywordArgument& keyword(std::size_t place) const {
    const Listing::Row& row = listing.rows[place];
    return row.place < keywords.size() && keywords[row.place].name == row.name ? keywords[row.place].value
                                                                               : found(row.name);
  }

  /// The argument of the parameter at `place`; for one left out, the default of the call's action.
  [[nodiscard]] const Value& value(std::size_t place) const {
    const Value* const bound = keyword(place).value_if();
    if (bound == nullptr) {
      refuse();
    }
    const ParamSpec* const differs = listing.rows[place].differs;
    return differs != nullptr && bound->is_null() ? default_of(*differs) : *bound;
  }

  [[nodiscard]] const KeywordArgument& found(const Text& name) const;
  [[nodiscard]] const Value& default_of(const ParamSpec& param) const;
  /// Throws for whatever of the call does not fit. Precondition: something does not.
  [[noreturn]] void refuse() const;
};

template <class Listed>
struct Taking;

template <class Type>
struct Taking<Argument<Type>> {
  using Taken = Type;
  static Parameter parameter(const Argument<Type>& listed) {
    return {.name = listed.name, .type = &argument_type<Type>};
  }
  static Type take(const TypedCall& call, std::size_t place) {
    Type taken{};
    if (!Reading<Type>::read(call.value(place), taken)) {
      call.refuse();
    }
    return taken;
  }
};

template <class Item>
struct Taking<ContextItem<Item>> {
  using Taken = Item&;
  static Parameter parameter(const ContextItem<Item>& listed) {
    return {.name = listed.name, .item = &item_type<Item>};
  }
  static Item& take(const TypedCall& call, std::size_t place) {
    Item* const found = call.keyword(place).template item_if<Item>();
    if (found == nullptr) {
      call.refuse();
    }
    return *found;
  }
};

template <class Item>
struct Taking<ContextItem<std::shared_ptr<Item>>> {
  using Taken = std::shared_ptr<Item>;
  static Parameter parameter(const ContextItem<std::shared_ptr<Item>>& listed) {
    return {.name = listed.name, .item = &item_type<Item>};
  }
  static std::shared_ptr<Item> take(const TypedCall& call, std::size_t place) {
    if (call.keyword(place).template item_if<Item>() == nullptr) {
      call.refuse();
    }
    return call.keyword(place).template shared_item<Item>();
  }
};

template <>
struct Taking<Rest> {
  using Taken = const KeywordArguments&;
  static Parameter parameter(const Rest& /*listed*/) { return {.name = "rest", .kind = Parameter::Kind::VAR_KEYWORD}; }
  static const KeywordArguments& take(const TypedCall& call, std::size_t /*place*/) { return call.keywords; }
};

}  // namespace detail

/// A handler that is called with its own types and answers with `Answer`, its function's type forgotten.
template <class Answer>
class TypedHandler {
 public:
  /// Of whatever answers with something that `Answer` is made of: what `handler` returns, mostly.
  template <class Listed>
  requires(!std::same_as<Listed, TypedHandler>) TypedHandler(Listed listed)  // NOLINT(google-explicit-constructor)
      : signature_(listed.signature()),
        function_(listed),
        for_tool_([listed](const ToolSpec& tool) { return TypedHandler(listed.for_tool(tool)); }) {}

  /// What the function takes, to be checked against the tool that it answers.
  [[nodiscard]] const Signature& signature() const noexcept { return signature_; }

  /// The same handler as it answers one tool, whose defaults and name it knows.
  [[nodiscard]] TypedHandler for_tool(const ToolSpec& tool) const { return for_tool_(tool); }

  /// Calls the function with what `handler_kwargs` made for the signature.
  Answer operator()(const KeywordArguments& keywords) const { return function_(keywords); }

 private:
  Signature signature_;
  std::function<Answer(const KeywordArguments&)> function_;
  std::function<TypedHandler(const ToolSpec&)> for_tool_;
};

/// What `handler` returns: a function and the list of what it takes. It becomes a `Handler` where `Value` can be made
/// of what the function returns, and a `TypedHandler<Answer>` where `Answer` can.
template <class Function, class... Listed>
class ListedHandler {
 public:
  static_assert(std::is_invocable_v<const Function&, typename detail::Taking<Listed>::Taken...>,
                "the function does not take what is listed, in that order: it is given each argument<Type> as Type, "
                "each item<Item> as Item&, and rest() as const KeywordArguments&");
  using Answer = std::invoke_result_t<const Function&, typename detail::Taking<Listed>::Taken...>;

  explicit ListedHandler(Function function, const Listed&... listed)
      : function_(std::move(function)),
        listing_(std::make_shared<const detail::Listing>(
            Signature{.parameters = {detail::Taking<Listed>::parameter(listed)...}, .complete = true})) {}

  [[nodiscard]] const Signature& signature() const noexcept { return listing_->signature; }

  [[nodiscard]] ListedHandler for_tool(const ToolSpec& tool) const {
    ListedHandler answering = *this;
    answering.listing_ = std::make_shared<const detail::Listing>(signature(), tool);
    return answering;
  }

  Answer operator()(const KeywordArguments& keywords) const {
    return call({keywords, *listing_}, std::index_sequence_for<Listed...>());
  }

  operator Handler() const  // NOLINT(google-explicit-constructor)
      requires std::convertible_to<Answer, Value> {
    return {.signature = signature(), .function = *this, .for_tool = [listed = *this](const ToolSpec& tool) {
              return Handler::Function(listed.for_tool(tool));
            }};
  }

 private:
  template <std::size_t... Places>
  Answer call(const detail::TypedCall& call, std::index_sequence<Places...> /*places*/) const {
    return std::invoke(function_, detail::Taking<Listed>::take(call, Places)...);
  }

  Function function_;
  std::shared_ptr<const detail::Listing> listing_;
};

/// A handler of `function`, which takes what is listed, in that order. A member function's object is listed first, as
/// `item<Daemon>`.
template <class Function, class... Listed>
[[nodiscard]] ListedHandler<std::decay_t<Function>, Listed...> handler(Function&& function, const Listed&... listed) {
  return ListedHandler<std::decay_t<Function>, Listed...>(std::forward<Function>(function), listed...);
}

namespace detail {
/// Throws for the one keyword that does not fit `parameter`.
[[noreturn]] TOOL_BINDING_API void refuse_keyword(const KeywordArguments& keywords, const Parameter& parameter);
}  // namespace detail

/// One argument out of `keywords` as `Type`, for a handler that takes the whole map. Throws as a listed one does.
template <class Type>
[[nodiscard]] Type get(const KeywordArguments& keywords, const Text& name) {
  const KeywordArgument* const keyword = keywords.find(name);
  Type taken{};
  const Value* const value = keyword == nullptr ? nullptr : keyword->value_if();
  if (value == nullptr || !Reading<Type>::read(*value, taken)) {
    detail::refuse_keyword(keywords, {.name = name, .type = &argument_type<Type>});
  }
  return taken;
}

/// One context item out of `keywords`, likewise.
template <class Item>
[[nodiscard]] Item& get_item(const KeywordArguments& keywords, const Text& name) {
  const KeywordArgument* const keyword = keywords.find(name);
  Item* const found = keyword == nullptr ? nullptr : keyword->template item_if<Item>();
  if (found == nullptr) {
    detail::refuse_keyword(keywords, {.name = name, .item = &detail::item_type<Item>});
  }
  return *found;
}

}  // namespace tool_binding
