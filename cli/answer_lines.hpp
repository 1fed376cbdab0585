// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "blocks.hpp"
#include "exit_status.hpp"
#include "options.hpp"
#include "tool_binding/json/writer.hpp"

namespace tool_binding::cli {

enum class Outcome : bool { answered, refused };

/// Writes the answer to a line, without a line feed, to `out`.
using Answerer = std::function<Outcome(const Line& line, json::Writer& out)>;

/// Answers every line of `files.lines` on standard output, in order; a blank one is not a request and is answered too,
/// so that each line has its answer. Answers are written before more input is waited for; while there is input,
/// they are gathered. Ends early when nobody reads the answers any more. `make_answerer` is called once for each of the
/// `files.jobs` threads. Throws std::system_error.
[[nodiscard]] ExitStatus answer_lines(const Files& files, const std::function<Answerer()>& make_answerer);

}  // namespace tool_binding::cli
