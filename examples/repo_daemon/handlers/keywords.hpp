// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "limits.hpp"
#include "tool_binding/handler.hpp"

namespace repo_daemon {

/// The keywords of one call, in the types that a handler works with.
///
/// No handler spells a default or a check of its own: a default that depends on the action and the words for a value
/// that is missing are asked of the registry. A keyword that is not there leaves as LookupError.
class Keywords {
 public:
  /// Views both, for the time of the call.
  Keywords(std::string_view tool, const tool_binding::KeywordArguments& keywords) : tool_(tool), keywords_(keywords) {}

  /// The action that the call runs; none for a tool without actions.
  [[nodiscard]] std::optional<std::string_view> action() const;

  /// The bound value, or the action's default for a parameter that has one and is left out.
  [[nodiscard]] tool_binding::Value value(const tool_binding::Text& name) const;

  [[nodiscard]] bool flag(const tool_binding::Text& name) const { return value(name).boolean(); }
  [[nodiscard]] std::string text_or(const tool_binding::Text& name, std::string_view otherwise) const;
  [[nodiscard]] std::vector<std::string> texts(const tool_binding::Text& name) const;

  /// A number that counts something, nothing for a parameter left out. One that is too large to count stands for the
  /// largest.
  [[nodiscard]] std::optional<std::size_t> count(const tool_binding::Text& name) const;

  /// A text without which the handler has nothing to do. Throws ArgumentError in the words in which admission refuses.
  [[nodiscard]] std::string required_text(const tool_binding::Text& name) const;
  [[nodiscard]] std::size_t required_count(const tool_binding::Text& name) const;

  /// When this call has to be done.
  [[nodiscard]] Deadline deadline(const Limits& limits) const;

  /// A context item, by the type with which the daemon offers it.
  template <class Item>
  [[nodiscard]] Item& context(const tool_binding::Text& name) const {
    return at(name).template item<Item>();
  }

 private:
  [[nodiscard]] const tool_binding::KeywordArgument& at(const tool_binding::Text& name) const;
  [[nodiscard]] tool_binding::Value required(const tool_binding::Text& name) const;

  std::string_view tool_;
  const tool_binding::KeywordArguments& keywords_;
};

}  // namespace repo_daemon
