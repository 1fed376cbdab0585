// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tool_binding/registry_check.hpp"

namespace tool_binding {
namespace {

const Signature any_keyword = {{{.name = "keywords", .kind = Parameter::Kind::VAR_KEYWORD}}};

std::string lines_for(const std::vector<RegistryFinding>& findings) {
  std::string lines;
  for (const RegistryFinding& finding : findings) {
    lines += finding.place + ": " + finding.words + "\n";
  }
  return lines;
}

std::string warnings_of(const ToolDeclaration& tool) {
  return lines_for(registry_warnings(std::vector<RegistryEntry>{{tool, {.signature = any_keyword, .function = {}}}}));
}

TEST(RegistryFindings, AreErrorsUpToTheWarnings) {
  using Kind = RegistryFinding::Kind;
  for (auto kind = Kind::shape; kind <= Kind::unusual_size; kind = static_cast<Kind>(static_cast<int>(kind) + 1)) {
    EXPECT_EQ(is_error(kind), kind < Kind::crossed_bounds) << static_cast<int>(kind);
  }
}

TEST(RegistryWarnings, DoubtWhatCommonClientsRefuse) {
  const auto numbered = [](std::size_t count) {
    std::vector<ParamSpec> params;
    for (std::size_t index = 0; index < count; ++index) {
      params.push_back({.name = "p" + std::to_string(index), .type = "array"});
    }
    return params;
  };
  std::vector<Text> values(500);
  for (std::size_t index = 0; index < values.size(); ++index) {
    values[index] = std::to_string(index);
  }
  const auto description = [](std::size_t count) {
    std::string text;
    for (std::size_t index = 0; index < count; ++index) {
      text += "é";
    }
    return text;
  };
  EXPECT_EQ(warnings_of({.name = "t", .description = description(1024), .params = numbered(100)}), "");
  EXPECT_EQ(warnings_of({.name = "web.t", .description = description(1025), .params = numbered(101)}),
            "tools[0].name: 'web.t' is refused by common clients: they accept 1 to 64 characters from A-Z, a-z, 0-9, _ "
            "and -\n"
            "tools[0].description: 1025 characters are too many for common clients: they accept at most 1024\n"
            "tools[0].params: 101 parameters are too many for common clients: they accept at most 100\n");
  const ParamSpec many = {.name = "p", .type = "string", .enum_ = values};
  EXPECT_EQ(warnings_of({.name = "t", .params = {many}}), "");
  EXPECT_EQ(warnings_of({.name = "t", .actions = {{.name = "a"}}, .params = {many}}),
            "tools[0]: 501 values of enumerations are too many for common clients: they accept at most 500\n");
  std::vector<RegistryEntry> entries(128);
  for (std::size_t index = 0; index < entries.size(); ++index) {
    entries[index] = {{.name = "t" + std::to_string(index)}, {.signature = any_keyword, .function = {}}};
  }
  EXPECT_EQ(lines_for(registry_warnings(entries)), "");
  entries.push_back({{.name = "t"}, {.signature = any_keyword, .function = {}}});
  EXPECT_EQ(lines_for(registry_warnings(entries)),
            "tools: 129 tools are too many for common clients: they accept at most 128\n");
}

}  // namespace
}  // namespace tool_binding
