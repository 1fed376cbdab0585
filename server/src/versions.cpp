// SPDX-License-Identifier: MIT
#include "versions.hpp"

#include <algorithm>
#include <array>

namespace tool_binding::server::detail {

namespace {

// clang-format off
constexpr std::array<Version, 5> versions = {{
    //             modern  batches  null_ids  annotations  audio  progress_words  titles  links  structured  any_structured
    {"2026-07-28", true,   false,   false,    true,        true,  true,           true,   true,  true,       true},
    {"2025-11-25", false,  false,   false,    true,        true,  true,           true,   true,  true,       false},
    {"2025-06-18", false,  false,   true,     true,        true,  true,           true,   true,  true,       false},
    {"2025-03-26", false,  true,    true,     true,        true,  true,           false,  false, false,      false},
    {"2024-11-05", false,  true,    true,     false,       false, false,          false,  false, false,      false},
}};
// clang-format on

}  // namespace

std::span<const Version> all_versions() noexcept { return versions; }

const Version* version_named(std::string_view name) noexcept {
  const auto* const found =
      std::find_if(versions.begin(), versions.end(), [&](const Version& version) { return version.name == name; });
  return found == versions.end() ? nullptr : found;
}

const Version& offered_version() noexcept {
  return *std::find_if(versions.begin(), versions.end(), [](const Version& version) { return !version.is_modern; });
}

}  // namespace tool_binding::server::detail
