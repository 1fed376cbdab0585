// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool_binding::json {

/// The place of a member of the object at `parent`: "tools[3].name", or "tools[3][\"odd name\"]" for a name that the
/// short form would leave unclear. The file's own object is the empty place.
[[nodiscard]] std::string member_place(std::string_view parent, std::string_view name);

/// The place of an item of the list at `parent`: "tools[3]".
[[nodiscard]] std::string item_place(std::string_view parent, std::size_t index);

/// Whether `inner` is `outer` or stands within it.
[[nodiscard]] bool stands_within(std::string_view inner, std::string_view outer) noexcept;

}  // namespace tool_binding::json
