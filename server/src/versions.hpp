// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace tool_binding::server::detail {

/// All that the versions of the protocol differ in, as far as a server of tools is concerned.
struct Version {
  std::string_view name;
  bool is_modern;  ///< each request names its version, and there is no session
  bool has_batches;
  bool has_null_ids;     ///< an error to a message without a readable id has the id null; else it has none
  bool has_annotations;  ///< of tools
  bool has_audio;
  bool has_progress_words;
  bool has_titles;          ///< of tools and of the server
  bool has_links;           ///< blocks that link to a resource
  bool has_structured;      ///< structured objects, and their schemas
  bool has_any_structured;  ///< structured values of any kind
};

/// The versions, the newest first.
[[nodiscard]] std::span<const Version> all_versions() noexcept;

/// The version of that name, null when it is not served.
[[nodiscard]] const Version* version_named(std::string_view name) noexcept;

/// The version to offer to a client that asks for one that is not served: the newest that has sessions.
[[nodiscard]] const Version& offered_version() noexcept;

}  // namespace tool_binding::server::detail
