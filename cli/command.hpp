// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "exit_status.hpp"

namespace CLI {
class App;
}

/// The commands, each in a file of its name.
///
/// A command declares its options on the parser that it is given and returns what runs once they are read. What is run
/// returns the status, and throws UnusableFile and std::system_error.
namespace tool_binding::cli {

using Run = std::function<ExitStatus()>;

Run declare_admit(CLI::App& command);
Run declare_missing(CLI::App& command);
Run declare_default(CLI::App& command);
Run declare_explain(CLI::App& command);
Run declare_check(CLI::App& command);
Run declare_schema(CLI::App& command);
Run declare_import(CLI::App& command);
Run declare_report(CLI::App& command);
Run declare_compare(CLI::App& command);

}  // namespace tool_binding::cli
