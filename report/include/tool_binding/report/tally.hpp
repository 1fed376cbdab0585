// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/report/report.hpp"

/// Counting requests, in any number of threads, with the same report whatever their number.
namespace tool_binding::report {

/// Where a request was read. The text is to live until what was seen of it is counted.
struct Place {
  std::uint64_t line = 0;  ///< counted from 1
  std::string_view text = {};
};

/// One thing that was seen of a request, to be counted in the order of the requests.
struct Sight {
  std::size_t tool = Row::none;  ///< the place of the tool in its table
  Seen seen = {};
  std::size_t parameter = Row::none;  ///< the place of the parameter among its tool's
  Text value = {};
  Text proposal = {};
  Value number = {};  ///< beyond a bound, and the bound
  Value bound = {};
  std::vector<Text> lacking = {};  ///< the parameters that an unknown name may stand for
  Place place = {};
};

/// Looks at requests. For one thread; what is counted without regard to order is kept here, and what needs it is given
/// to `sights`.
class TOOL_BINDING_API Observer {
 public:
  /// The table is to live as long as this object, and not to be added to.
  explicit Observer(const ToolTable& table);

  /// Looks at a request to a tool of the table, and at what came of it.
  void see(const ToolSpec& tool, const ArgumentMap& sent, const Admission& admission, const Place& place,
           std::vector<Sight>& sights);

  /// Looks at a request with a number that no double can hold.
  void see_overflow(const ToolSpec& tool, const Place& place, std::vector<Sight>& sights);

  /// What has been counted here.
  [[nodiscard]] const std::vector<ToolUse>& uses() const noexcept { return uses_; }

 private:
  void see_arguments(ToolUse& use, std::size_t place_of_tool, const ArgumentMap& sent, const Admission& admission,
                     const Place& place, std::vector<Sight>& sights);

  std::vector<ToolUse> uses_;
  std::unordered_map<const detail::ToolRecord*, std::size_t> places_;
};

/// Sights of what is no request to a tool: one for a tool that is not declared, one for a line that is no request.
[[nodiscard]] TOOL_BINDING_API Sight sight_of_unknown_tool(const Text& name, const Place& place);
[[nodiscard]] TOOL_BINDING_API Sight sight_of_no_request(const Text& reason, const Place& place);

/// Adds what was seen to a report, in the order of the requests. `file` is what examples are named by.
TOOL_BINDING_API void count(Report& report, std::span<const Sight> sights, const Text& file);

/// Adds sights to one row.
TOOL_BINDING_API void count(Row& row, std::span<const Sight> sights, const Text& file);

/// Adds what an observer has counted; the order of the observers makes no difference.
TOOL_BINDING_API void count(Report& report, const Observer& observer);

}  // namespace tool_binding::report
