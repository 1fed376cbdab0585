// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <csignal>
#include <iostream>
#include <new>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "command.hpp"
#include "loading.hpp"
#include "misuse.hpp"
#include "output.hpp"

namespace {

using namespace tool_binding::cli;

struct Command {
  const char* name;
  const char* purpose;
  Run (*declare)(CLI::App& command);
};

constexpr std::array commands = {
    Command{"admit", "Admit requests, one per line, and show the keywords that their handlers would get",
            declare_admit},
    Command{"missing", "Show which required parameters calls leave out", declare_missing},
    Command{"default", "Look up the values that calls get for parameters they leave out", declare_default},
    Command{"explain", "Show, for a person to read, what becomes of one request and why", declare_explain},
    Command{"check", "Report everything that is wrong or doubtful in a registry", declare_check},
    Command{"schema", "Show the tools as their callers are told of them, with a JSON Schema each", declare_schema},
    Command{"import", "Make a registry of a list of tools with their JSON Schemas", declare_import},
    Command{"report", "Show what the callers of recorded requests get wrong, and what to declare about it",
            declare_report},
    Command{"compare", "Show which recorded requests a changed registry answers otherwise", declare_compare},
};

constexpr const char* closing_words =
    "Answers go to standard output, one per line; everything else to standard error.\n"
    "Exit status: 0 all answered, 1 some request refused or tool left out, 2 wrong usage or an unusable registry,\n"
    "context or list, 3 input or output failed. A reader that closes the pipe ends the run with the status so far.";

void complain(std::string_view lines) {
  while (!lines.empty()) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    std::cerr << "tool-binding: " << line << '\n';
    lines.remove_prefix(std::min(line.size() + 1, lines.size()));
  }
}

/// Shows what the parser stopped for: help and version, which were asked for, or how the usage was wrong.
ExitStatus show(const CLI::App& app, const CLI::ParseError& stop) {
  std::ostringstream data;
  const bool asked_for = app.exit(stop, data, std::cerr) == 0;
  print(data.str());
  return asked_for ? ExitStatus::answered : ExitStatus::unusable;
}

ExitStatus run(int argument_count, const char* const* arguments) {
  CLI::App app("Admits tool requests against a registry, as a daemon does before its handlers run.", "tool-binding");
  app.require_subcommand(0, 1);
  app.failure_message(misuse_words);
  app.set_version_flag("--version", "tool-binding " TOOL_BINDING_VERSION);
  app.footer(closing_words);
  std::vector<std::pair<CLI::App*, Run>> runs;
  for (const Command& command : commands) {
    CLI::App* const declared = app.add_subcommand(command.name, command.purpose);
    runs.emplace_back(declared, command.declare(*declared));
  }
  try {
    app.parse(argument_count, arguments);
    if (app.get_subcommands().empty()) {
      throw CLI::RequiredError("a command");
    }
  } catch (const CLI::ParseError& stop) {
    return show(app, stop);
  }
  const auto named = std::find_if(runs.begin(), runs.end(), [](const auto& entry) { return entry.first->parsed(); });
  return named->second();
}

}  // namespace

// Any other exception is a fault of this program, and ends it.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argument_count, char** arguments) {
  std::signal(SIGPIPE, SIG_IGN);
  ExitStatus status = ExitStatus::failed;
  try {
    status = run(argument_count, arguments);
  } catch (const UnusableFile& unusable) {
    complain(unusable.message());
    status = ExitStatus::unusable;
  } catch (const std::system_error& failure) {
    complain(failure.what());
  } catch (const std::bad_alloc&) {
    complain("out of memory");
  }
  return static_cast<int>(status);
}
