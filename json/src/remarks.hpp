// SPDX-License-Identifier: MIT
#pragma once

#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::json {

/// What is remarked upon in one tool, until it is known whether the tool is left out: then its reasons are one remark,
/// and nothing else is.
class ToolRemarks {
 public:
  ToolRemarks(std::string tool, std::string place) : tool_(std::move(tool)), place_(std::move(place)) {}

  void leave_out(std::string reason) {
    if (known_.insert(reason).second) {
      reasons_.push_back(std::move(reason));
    }
  }

  void add(Remark::Kind kind, const Text& parameter, std::string place, std::string words) {
    remarks_.push_back({kind, tool_, std::string(parameter), std::move(place), std::move(words)});
  }

  [[nodiscard]] bool is_left_out() const noexcept { return !reasons_.empty(); }

  void move_to(std::vector<Remark>& remarks) {
    if (!is_left_out()) {
      std::move(remarks_.begin(), remarks_.end(), std::back_inserter(remarks));
      return;
    }
    std::string words = "left out: ";
    for (const std::string& reason : reasons_) {
      words.append(words.ends_with(": ") ? "" : "; ").append(reason);
    }
    remarks.push_back({Remark::Kind::tool_left_out, tool_, "", place_, std::move(words)});
  }

 private:
  std::string tool_;
  std::string place_;
  std::vector<std::string> reasons_;  ///< in the order in which they were found
  std::set<std::string> known_;       ///< the same
  std::vector<Remark> remarks_;
};

}  // namespace tool_binding::json
