// SPDX-License-Identifier: MIT
#include <array>
#include <iostream>
#include <string>
#include <string_view>

#include "compile/compiled_tool.hpp"
#include "near_names/nearest.hpp"
#include "tool_binding/call.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/writer.hpp"
#include "walk.hpp"

/// Does one thing as often as it is told, for callgrind to count: a request's walk ("walk A"), the same in one call
/// ("call A"), the reading and the writing of its arguments ("read A", "write A"), or the search for the name that an
/// unknown one was meant to be ("near lmit").
namespace tool_binding::bench {
namespace {

template <class Act>
std::size_t repeat(int times, const Act& act) {
  std::size_t sum = 0;
  for (; times > 0; --times) {
    sum += act();
  }
  return sum;
}

std::size_t walks(const Request& request, int times) {
  const Walk walk;
  const Value read = json::read(request.text);
  const ArgumentMap& arguments = read.mapping();
  return request.name == "C" ? repeat(times, [&] { return walk.refusal(arguments).size(); })
                             : repeat(times, [&] { return walk(arguments).size(); });
}

/// Of a refusal its text is made, as of a thrown one.
std::size_t calls(const Request& request, int times) {
  const Walk walk;
  const Value read = json::read(request.text);
  const ArgumentMap& arguments = read.mapping();
  return repeat(times, [&] {
    const PreparedCall call = prepare_call(walk.tool, walk.handler, arguments, walk.context);
    return call.is_admitted() ? call.keywords().size() + call.notes().size() : call.refusal().size();
  });
}

std::size_t reads(const Request& request, int times) {
  json::Reader reader;
  return repeat(times, [&] { return reader.read(request.text).mapping().size(); });
}

std::size_t writes(const Request& request, int times) {
  const Value arguments = json::read(request.text);
  json::Writer writer;
  return repeat(times, [&] {
    writer.clear();
    writer.write(arguments);
    return writer.text().size();
  });
}

std::size_t searches(std::string_view name, int times) {
  const ToolSpec tool(search_declaration());
  const detail::NearCandidates& names = detail::compiled(tool).near_params;
  return repeat(times, [&] { return std::size_t{_nearest(name, names) == nullptr ? 0U : 1U}; });
}

struct Row {
  std::string_view what;
  std::size_t (*count)(const Request& request, int times);
};

constexpr std::array<Row, 4> rows = {{{"walk", walks}, {"call", calls}, {"read", reads}, {"write", writes}}};

}  // namespace
}  // namespace tool_binding::bench

int main(int argc, char** argv) {
  using namespace tool_binding::bench;
  const std::string_view what = argc == 4 ? argv[1] : "";
  const std::string_view of = argc == 4 ? argv[2] : "";
  if (what == "near") {
    std::cout << searches(of, std::stoi(argv[3])) << '\n';
    return 0;
  }
  for (const Row& row : rows) {
    for (const Request& request : requests) {
      if (row.what == what && request.name == of) {
        std::cout << row.count(request, std::stoi(argv[3])) << '\n';
        return 0;
      }
    }
  }
  std::cerr
      << "usage: count_instructions walk|call|read|write A|B|C TIMES\n       count_instructions near NAME TIMES\n";
  return 2;
}
