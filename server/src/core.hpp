// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/server/server.hpp"
#include "versions.hpp"

namespace tool_binding::server::detail {

/// The name under which handlers that list no types are offered their call.
inline constexpr std::string_view call_item = "call";

/// A tool as calls find it.
struct Tool {
  const ToolSpec* spec;
  Handler shape;  ///< what the handler takes; without a function
  ToolHandler::Function function;
  std::vector<Text> call_names;  ///< under which the handler takes its call
  ServedTool served;
};

/// All of a server that its clients share. Worked out once, then only read.
class Core {
 public:
  Core(ServerInfo info, const std::vector<ServedTool>& tools, Options options);

  [[nodiscard]] const Limits& limits() const noexcept { return options_.limits; }
  [[nodiscard]] std::size_t workers() const noexcept { return options_.workers; }
  [[nodiscard]] const KeywordArguments& context() const noexcept { return options_.context; }

  /// The tool of that name, null when there is none.
  [[nodiscard]] const Tool* tool_named(const Text& name) const;
  [[nodiscard]] std::string unknown_tool_words(const Text& name) const;

  /// Whether a handler can write to the log: it takes its call.
  [[nodiscard]] bool has_log() const noexcept { return has_log_; }

  /// The results of the methods that answer every client of a version alike.
  [[nodiscard]] std::string_view greeting(const Version& version) const { return at(version).greeting; }
  [[nodiscard]] std::string_view tool_list(const Version& version) const { return at(version).tool_list; }

  /// What stands in each result of a modern version.
  [[nodiscard]] Value server_info(const Version& version) const;

 private:
  struct Results {
    std::string greeting;
    std::string tool_list;
  };
  void declare(const std::vector<ServedTool>& tools);
  [[nodiscard]] const Results& at(const Version& version) const;
  [[nodiscard]] std::string made_greeting(const Version& version) const;
  [[nodiscard]] std::string made_tool_list(const Version& version) const;

  ServerInfo info_;
  Options options_;
  std::unique_ptr<ToolTable> own_table_;
  std::vector<Tool> tools_;
  OrderedMap<std::size_t> places_;
  ToolSpec names_;  ///< one whose actions are the tools: the layer's own search looks for names among them
  bool has_log_ = false;
  std::vector<Results> results_;  ///< one for each version
};

/// A result with what each result of that version has.
[[nodiscard]] ArgumentMap finished_result(ArgumentMap result, const Core& core, const Version& version);

/// A value as text that is fit to be sent.
[[nodiscard]] std::string sendable(const Value& value);

}  // namespace tool_binding::server::detail
