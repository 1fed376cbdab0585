// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "output_style.hpp"
#include "request.hpp"
#include "tool_binding/report/pages.hpp"
#include "tool_binding/report/report.hpp"

namespace CLI {
class App;
}

/// Reading logs of requests for the commands that count instead of answering, and showing the counts.
namespace tool_binding::cli {

/// The logs, and the threads that read them.
struct RecordedRequests {
  std::vector<std::string> paths;  ///< none: standard input
  std::size_t jobs = 1;
  Colour colour = Colour::automatic;
};

/// Declares --jobs, --color and the requests.
void add_recorded_requests(CLI::App& command, RecordedRequests& requests);

/// Throws WrongUsage when standard input is named twice.
void check_standard_input(const std::vector<std::string>& paths);

/// The paths to read, with standard input where none is named.
[[nodiscard]] std::vector<std::string> paths_of(const RecordedRequests& requests);

/// What is wrong with a line that is no request, without its place. Precondition: `error` is being handled; one that
/// does not say so is thrown again.
[[nodiscard]] Text fault_of(const ValueError& error);

/// The report on all requests, to the tools of that table. On a terminal, standard error shows how far it is. Throws
/// std::system_error.
[[nodiscard]] report::Report observe(const ToolTable& table, const RecordedRequests& requests);

}  // namespace tool_binding::cli
