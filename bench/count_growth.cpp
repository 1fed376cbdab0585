// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/json/tool_list.hpp"
#include "walk.hpp"

/// Walks one request of a given shape and size, or imports one tool of that size, for callgrind to count:
/// `count_growth SHAPE SIZE`.
namespace tool_binding::bench {

namespace {

std::string times(std::size_t count, std::string_view part) {
  std::string text;
  for (; count > 0; --count) {
    text += part;
  }
  return text;
}

/// So many different names whose letters are the same.
ArgumentMap names(std::size_t count) {
  ArgumentMap arguments;
  std::string name = "abcdefghijk";
  for (; count > 0; --count, std::next_permutation(name.begin(), name.end())) {
    arguments.append(name, 1);
  }
  return arguments;
}

/// One argument, a text that is as long as the size says.
struct TextShape {
  std::string_view name;
  const char* param;
  std::string_view before;
  std::string_view repeated;
  std::string_view after;
};

constexpr TextShape text_shapes[] = {
    {"digits", "integer", "", "7", ""},
    {"fraction", "number", "0.", "3", ""},
    {"zeros", "number", "", "0", "1e5"},
    {"beyond-bound", "bounded", "", "7", ""},
    {"text", "text", "", "a", ""},
    {"blank", "text", "", "\u3000", ""},
    {"truth-word", "truth", "", "\u03A3'", ""},
    {"list-text", "list", "", "a,", ""},
    {"unclosed-list", "list", "[", "\"\",", "\""},
    {"action", "action", "", "a", ""},
};

constexpr std::string_view other_shapes[] = {"items", "problems", "unknown-names", "long-name", "import"};

ArgumentMap request(std::string_view shape, std::size_t size) {
  for (const TextShape& row : text_shapes) {
    if (row.name == shape) {
      return {{row.param, std::string(row.before) + times(size, row.repeated) + std::string(row.after)}};
    }
  }
  if (shape == "items") {
    return {{"list", std::vector<Value>(size, 7)}};
  }
  if (shape == "problems") {
    return {{"chosen", std::vector<Value>(size, "y")}};
  }
  return shape == "long-name" ? ArgumentMap{{times(size, "a"), 1}} : names(size);
}

/// Its longest names are of one letter, and as long as a name that the request gives.
ToolSpec tool(std::size_t size) {
  return ToolSpec({.name = "t",
                   .actions = {{.name = "go"}, {.name = times(size, "a") + "a"}},
                   .default_action = "go",
                   .params = {{.name = "integer", .type = "integer"},
                              {.name = "bounded", .type = "integer", .maximum = 9},
                              {.name = "number", .type = "number"},
                              {.name = "truth", .type = "boolean"},
                              {.name = "text", .type = "string"},
                              {.name = "list", .type = "array", .items_type = "string"},
                              {.name = "chosen", .type = "array", .enum_ = {"x"}},
                              {.name = times(size, "a") + "a", .type = "string"}}});
}

/// A list with one tool of so many parameters, each with a rule that is not kept.
std::string tool_list(std::size_t size) {
  std::string properties;
  std::string required;
  for (std::size_t number = 0; number < size; ++number) {
    const std::string name = "\"p" + std::to_string(number) + "\"";
    const std::string_view comma = number == 0 ? "" : ",";
    properties.append(comma).append(name).append(R"(:{"type":"string","pattern":"x"})");
    required.append(comma).append(name);
  }
  return R"([{"name":"t","inputSchema":{"type":"object","properties":{)" + properties + R"(},"required":[)" + required +
         "]}}]";
}

std::size_t walked(std::string_view shape, std::size_t size) {
  const ToolSpec spec = tool(shape == "long-name" || shape == "action" ? size : 300);
  try {
    const ArgumentMap bound = bind_arguments(spec, normalize_arguments(spec, request(shape, size)).arguments());
    return handler_kwargs({}, bound, {}).size();
  } catch (const ArgumentError& refusal) {
    return refusal.message().size();
  }
}

}  // namespace

}  // namespace tool_binding::bench

/// Without arguments, names the shapes.
int main(int argc, char** argv) {
  using namespace tool_binding::bench;
  if (argc == 3) {
    const std::string_view shape = argv[1];
    const std::size_t size = std::stoul(argv[2]);
    std::cout << (shape == "import" ? tool_binding::json::import_tools(tool_list(size)).remarks.size()
                                    : walked(shape, size))
              << '\n';
    return 0;
  }
  for (const TextShape& shape : text_shapes) {
    std::cout << shape.name << '\n';
  }
  for (const std::string_view shape : other_shapes) {
    std::cout << shape << '\n';
  }
}
