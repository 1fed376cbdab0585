// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "tool_binding/value.hpp"

/// Numbers as pages show and compare them.
namespace tool_binding::report {

/// 1234567 as "1,234,567".
[[nodiscard]] std::string with_commas(std::uint64_t number);

/// The part of the whole as "3.2%"; "0%" of nothing.
[[nodiscard]] std::string percent(std::uint64_t part, std::uint64_t whole);

/// The part of the whole from 0 to 1; 0 of nothing.
[[nodiscard]] double share_of(std::uint64_t part, std::uint64_t whole) noexcept;

/// Whether a number is below another. Precondition: both are numbers.
[[nodiscard]] bool is_below(const Value& left, const Value& right);

}  // namespace tool_binding::report
