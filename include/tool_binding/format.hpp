// SPDX-License-Identifier: MIT
#pragma once

#include <version>

#ifdef __cpp_lib_format

#include <format>
#include <string_view>

#include "tool_binding/value.hpp"

/// Texts, integers and values for std::format, where the standard library has it; without it this header is empty.
///
/// Each takes what a std::string_view takes: "{:>20}". A Value is written in its plain form, after "?" in its quoted
/// form:
/// "{:?}", "{:?>20}" being a fill as ever.

template <>
struct std::formatter<tool_binding::Text> : std::formatter<std::string_view> {
  template <class Context>
  auto format(const tool_binding::Text& text, Context& context) const {
    return std::formatter<std::string_view>::format(text.view(), context);
  }
};

template <>
struct std::formatter<tool_binding::Integer> : std::formatter<std::string_view> {
  template <class Context>
  auto format(const tool_binding::Integer& integer, Context& context) const {
    return std::formatter<std::string_view>::format(integer.to_string(), context);
  }
};

template <>
struct std::formatter<tool_binding::Value> : std::formatter<std::string_view> {
  template <class Context>
  constexpr auto parse(Context& context) {
    const auto begin = context.begin();
    quoted_ = begin != context.end() && *begin == '?' && (begin + 1 == context.end() || begin[1] == '}');
    if (quoted_) {
      context.advance_to(begin + 1);
    }
    return std::formatter<std::string_view>::parse(context);
  }

  template <class Context>
  auto format(const tool_binding::Value& value, Context& context) const {
    using Base = std::formatter<std::string_view>;
    return quoted_ ? Base::format(tool_binding::quoted_form(value), context)
                   : Base::format(tool_binding::plain_form(value).view(), context);
  }

 private:
  bool quoted_ = false;
};

#endif
