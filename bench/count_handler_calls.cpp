// SPDX-License-Identifier: MIT
#include <cstdint>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "search_tool.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/typed_handler.hpp"

/// Calls a handler with request A's keywords as often as it is told, for callgrind to count: one that lists its types
/// in the order of the tool, one that lists them the other way round, or one that reads the same keywords by hand, each
/// by its name, and trusts that it is there.
namespace tool_binding::bench {

namespace {

using Texts = std::vector<std::string_view>;

/// What the handler does with its arguments: hardly anything, so that the call is what counts.
[[gnu::noinline]] std::int64_t search(std::string_view action, std::string_view query,
                                      std::optional<std::string_view> path, int limit, int offset, double threshold,
                                      bool regex, const std::optional<Texts>& kinds, std::string_view mode,
                                      bool include_private, const std::optional<Texts>& languages, int context_lines,
                                      std::string_view sort, const std::string& root) {
  return static_cast<std::int64_t>(action.size() + query.size() + (path ? 1U : 0U) + (kinds ? kinds->size() : 0U) +
                                   mode.size() + (languages ? 1U : 0U) + sort.size() + root.size()) +
         limit + offset + static_cast<std::int64_t>(threshold) + (regex ? 1 : 0) + (include_private ? 1 : 0) +
         context_lines;
}

Handler typed() {
  return handler(search, argument<std::string_view>("action"), argument<std::string_view>("query"),
                 argument<std::optional<std::string_view>>("path"), argument<int>("limit"), argument<int>("offset"),
                 argument<double>("threshold"), argument<bool>("regex"), argument<std::optional<Texts>>("kinds"),
                 argument<std::string_view>("mode"), argument<bool>("include_private"),
                 argument<std::optional<Texts>>("languages"), argument<int>("context_lines"),
                 argument<std::string_view>("sort"), item<const std::string>("root"));
}

Handler reversed() {
  const auto search_reversed =
      [](const std::string& root, std::string_view sort, int context_lines, const std::optional<Texts>& languages,
         bool include_private, std::string_view mode, const std::optional<Texts>& kinds, bool regex, double threshold,
         int offset, int limit, std::optional<std::string_view> path, std::string_view query, std::string_view action) {
        return search(action, query, path, limit, offset, threshold, regex, kinds, mode, include_private, languages,
                      context_lines, sort, root);
      };
  return handler(search_reversed, item<const std::string>("root"), argument<std::string_view>("sort"),
                 argument<int>("context_lines"), argument<std::optional<Texts>>("languages"),
                 argument<bool>("include_private"), argument<std::string_view>("mode"),
                 argument<std::optional<Texts>>("kinds"), argument<bool>("regex"), argument<double>("threshold"),
                 argument<int>("offset"), argument<int>("limit"), argument<std::optional<std::string_view>>("path"),
                 argument<std::string_view>("query"), argument<std::string_view>("action"));
}

std::optional<Texts> texts(const Value& list) {
  if (list.is_null()) {
    return std::nullopt;
  }
  Texts read;
  read.reserve(list.list().size());
  for (const Value& text : list.list()) {
    read.push_back(text.text());
  }
  return read;
}

Value by_hand(const KeywordArguments& keywords) {
  const Value& path = keywords.find("path")->value();
  return search(keywords.find("action")->value().text(), keywords.find("query")->value().text(),
                path.is_null() ? std::nullopt : std::optional(path.text()),
                static_cast<int>(keywords.find("limit")->value().to_int64().value()),
                static_cast<int>(keywords.find("offset")->value().to_int64().value()),
                keywords.find("threshold")->value().floating(), keywords.find("regex")->value().boolean(),
                texts(keywords.find("kinds")->value()), keywords.find("mode")->value().text(),
                keywords.find("include_private")->value().boolean(), texts(keywords.find("languages")->value()),
                static_cast<int>(keywords.find("context_lines")->value().to_int64().value()),
                keywords.find("sort")->value().text(), keywords.find("root")->item<const std::string>());
}

/// The handler as its tool's, and what it is called with.
struct Call {
  Handler::Function function;
  KeywordArguments keywords;

  Call(const Handler& handler, const ArgumentMap& arguments) {
    const ToolSpec tool(search_declaration());
    function = handler.for_tool ? handler.for_tool(tool) : handler.function;
    keywords = handler_kwargs(search_handler(), bind_arguments(tool, normalize_arguments(tool, arguments).arguments()),
                              daemon_context());
  }
};

}  // namespace

}  // namespace tool_binding::bench

int main(int argc, char** argv) {
  using namespace tool_binding;
  const std::pair<std::string_view, Handler> ways[] = {{"typed", bench::typed()},
                                                       {"reversed", bench::reversed()},
                                                       {"by_hand", {.signature = {}, .function = bench::by_hand}}};
  for (const auto& [way, handler] : ways) {
    if (argc != 3 || way != argv[1]) {
      continue;
    }
    const bench::Call call(handler, json::read(bench::requests.front().text).mapping());
    std::int64_t sum = 0;
    for (int left = std::stoi(argv[2]); left > 0; --left) {
      sum += call.function(call.keywords).to_int64().value();
    }
    std::cout << sum << '\n';
    return 0;
  }
  std::cerr << "usage: count_handler_calls typed|reversed|by_hand TIMES\n";
  return 2;
}
