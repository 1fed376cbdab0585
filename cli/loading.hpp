// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "tool_binding/errors.hpp"
#include "tool_binding/handler.hpp"
#include "tool_binding/registry_check.hpp"

/// What is read once, before the first line is answered.
namespace tool_binding::cli {

/// A registry or a context that cannot be used. Its message has a line for each fault, which begins with the path.
class UnusableFile : public Error {
 public:
  UnusableFile(const std::string& path, std::string_view faults);
  /// The faults of several files, whose lines begin with their paths already.
  explicit UnusableFile(Text faults) noexcept : Error(std::move(faults)) {}
};

/// Fills `TOOLS` from a registry file. Throws UnusableFile, and std::system_error for a file that cannot be read.
[[nodiscard]] Handlers load_registry(const std::string& path);
/// The same with another table.
[[nodiscard]] Handlers load_registry(const std::string& path, ToolTable& table);

/// The context items of a file, each a `const Value`; none for an empty path. Throws as `load_registry`.
[[nodiscard]] KeywordArguments load_context(const std::string& path);

}  // namespace tool_binding::cli
