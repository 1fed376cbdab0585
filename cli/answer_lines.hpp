// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "exit_status.hpp"
#include "input_lines.hpp"
#include "tool_binding/json/writer.hpp"

namespace tool_binding::cli {

enum class Outcome : bool { answered, refused };

/// Writes the answer to a line, without a line feed, to `out`.
using Answerer = std::function<Outcome(const Line& line, json::Writer& out)>;

/// Answers every line of a file on standard output, in order; a blank one is no request and is answered too,
/// so that the answers stand line for line. Answers are written before more
/// input is waited for; while there is input, they are gathered. Ends early when nobody reads the answers any more.
/// Throws std::system_error.
[[nodiscard]] ExitStatus answer_lines(const std::string& path, const Answerer& answer);

}  // namespace tool_binding::cli
