// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/handler.hpp"
#include "tool_binding/registry_check.hpp"
#include "tool_binding/tool_registry.hpp"

/// A registry written as a JSON file: an object with a list "tools", one object a tool.
namespace tool_binding::json {

/// What a file is refused with: its faults, in the order of their lines.
using tool_binding::RegistryError;
/// A finding that makes the file unusable: a fault of shape, or an error of the registry's check.
using Fault = RegistryFinding;

/// What a registry file declares, usable or not, for those who judge it further.
class TOOL_BINDING_API RegistryFile {
 public:
  /// Throws ParseError for a text that is not JSON.
  explicit RegistryFile(std::string_view text);

  /// The tools in the file's order. Where the file has a fault, a field holds what could be read of it.
  [[nodiscard]] std::span<const RegistryEntry> entries() const noexcept;

  /// What makes the file unusable, in the order of the lines.
  [[nodiscard]] std::span<const Fault> faults() const noexcept;

  /// The faults and the warnings, in the order of the lines. Where a shape is wrong nothing is doubted as well.
  [[nodiscard]] std::vector<RegistryFinding> check() const;

  /// The line of a place, counted from 1; that of the innermost object or list around it where the place itself is not
  /// in the file.
  [[nodiscard]] std::size_t line_of(std::string_view place) const;

 private:
  struct Content;
  std::shared_ptr<const Content> content_;
};

/// A tool and its handler, which has the declared signature and no function yet.
struct DeclaredTool {
  ToolSpec tool;
  Handler handler;
};

/// The tools of a registry file, in its order. A tool without a handler in the file has one that takes any keyword.
/// Throws ParseError for a text that is not JSON, and RegistryError with all faults at once.
[[nodiscard]] TOOL_BINDING_API std::vector<DeclaredTool> read_registry(std::string_view text);

}  // namespace tool_binding::json
