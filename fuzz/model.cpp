// SPDX-License-Identifier: MIT
#include "model/difference.hpp"
#include "pool.hpp"

/// A tool and requests for it: the layer and the model answer alike.
namespace tool_binding::fuzz {
namespace {

void require_alike(const std::string& difference) {
  require(difference.empty(), "the layer answers as the model does", difference);
}

void check(Choices choices) {
  const model::Tool tool{draw_tool(choices, "search")};
  do {
    const ArgumentMap request = draw_request(choices, tool.declared);
    require_alike(model::difference_in_walk(tool, request));
    const Text name = draw_name(choices);
    const Text action = draw_name(choices);
    require_alike(model::difference_in_missing(tool, {}, request));
    require_alike(model::difference_in_missing(tool, action, request));
    require_alike(model::difference_in_default(tool, name, action));
  } while (!choices.empty());
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
