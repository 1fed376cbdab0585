// SPDX-License-Identifier: MIT
#include "tool_binding/json/findings.hpp"

#include <vector>

namespace tool_binding::json {

Value finding_value(const Finding& finding) {
  ArgumentMap members;
  members.append("kind", word_of(finding.kind));
  if (!finding.sent.is_null()) {
    members.append("argument", finding.argument);
  }
  if (finding.parameter != nullptr) {
    members.append("parameter", finding.parameter->name);
  }
  if (!finding.sent.is_null()) {
    members.append("sent", finding.sent);
  }
  if (!finding.used.is_null()) {
    members.append("used", finding.used);
  }
  if (!finding.proposal.empty()) {
    members.append("proposal", finding.proposal);
  }
  members.append("message", finding.message());
  return members;
}

Value findings_value(std::span<const Finding> findings) {
  std::vector<Value> values;
  values.reserve(findings.size());
  for (const Finding& finding : findings) {
    values.push_back(finding_value(finding));
  }
  return values;
}

}  // namespace tool_binding::json
