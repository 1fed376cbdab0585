// SPDX-License-Identifier: MIT
#include "utc.hpp"

#include <ctime>

namespace repo_daemon {

std::string utc(std::int64_t nanoseconds) {
  constexpr std::int64_t second = 1'000'000'000;
  const auto seconds = static_cast<std::time_t>(nanoseconds / second - (nanoseconds % second < 0 ? 1 : 0));
  std::tm parts = {};
  char text[32];
  if (gmtime_r(&seconds, &parts) == nullptr) {
    return "at an unknown time";
  }
  return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%SZ", &parts)};
}

}  // namespace repo_daemon
