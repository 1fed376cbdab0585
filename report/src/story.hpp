// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tool_binding/report/advice.hpp"
#include "tool_binding/report/report.hpp"

/// What a report says to people, before it is set for a terminal or a browser.
namespace tool_binding::report {

/// One line of a table: how often something came.
struct StoryRow {
  std::string where;  ///< the tool, with its parameter or action
  std::string what;   ///< the name or value, empty where there is none
  std::uint64_t times = 0;
  std::uint64_t of = 0;  ///< the whole that it is a share of
  std::string note = {};
  const Example* example = nullptr;
};

/// Rows under a heading.
struct StorySection {
  std::string heading;
  std::string words;  ///< what the section is about
  std::string of;     ///< what the shares are of
  std::vector<StoryRow> rows;
  std::vector<std::string> remarks = {};  ///< what is left out, and what is not counted exactly
};

/// How the requests to a tool, or those that ran one of its actions, ended.
struct StoryUse {
  std::string name;
  Outcomes outcomes;
  bool is_action = false;
};

struct Story {
  Outcomes outcomes;
  std::uint64_t no_requests = 0;
  std::string summary;  ///< in a sentence
  std::vector<StoryUse> uses;
  std::string unused;  ///< the tools that nobody asked for, in a sentence; empty for none
  std::vector<Advice> advice;
  std::vector<StorySection> sections;  ///< those that have rows
};

/// Refers to the report.
[[nodiscard]] Story story_of(const Report& report);

/// A text from a request for people: as it is where all of it can be shown, else between quotes with the rest escaped.
[[nodiscard]] std::string shown(const Text& text);

}  // namespace tool_binding::report
