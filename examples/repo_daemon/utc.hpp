// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace repo_daemon {

/// A time in nanoseconds since 1970 as "2031-04-05 06:07:08Z".
[[nodiscard]] std::string utc(std::int64_t nanoseconds);

}  // namespace repo_daemon
