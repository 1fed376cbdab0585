// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "command.hpp"
#include "explanation.hpp"
#include "loading.hpp"
#include "options.hpp"
#include "output.hpp"
#include "proposals.hpp"
#include "tool_binding/json/reader.hpp"

namespace tool_binding::cli {

namespace {

struct Typed {
  Files files;
  std::string tool;
  Colour colour = Colour::automatic;
  std::vector<std::string> arguments;  ///< each is "-" or NAME=VALUE
};

/// JSON where it reads as JSON, else the text that it is.
Value value_of(const std::string& text) {
  try {
    return json::read(text);
  } catch (const json::ParseError&) {
    return text;
  }
}

/// The arguments of standard input.
Value read_arguments() {
  Value arguments;
  try {
    arguments = json::read(read_file(standard_input));
  } catch (const json::ParseError& error) {
    throw UnusableFile(standard_input, error.message());
  }
  if (!arguments.is_mapping()) {
    throw UnusableFile(standard_input, "the arguments must be a JSON object");
  }
  return arguments;
}

ArgumentMap arguments_of(const Typed& request) {
  ArgumentMap arguments;
  for (const std::string& argument : request.arguments) {
    if (argument == standard_input) {
      const Value read = read_arguments();
      for (const auto& [name, value] : read.mapping()) {
        arguments.set(name, value);
      }
    } else {
      const std::size_t sign = argument.find('=');
      arguments.set(argument.substr(0, sign), value_of(argument.substr(sign + 1)));
    }
  }
  return arguments;
}

/// The account of a request, and whether it is admitted.
std::string account_of(const ToolSpec& tool, const ArgumentMap& arguments, const Handler& handler,
                       const KeywordArguments& context, const report::TextStyle& style, ExitStatus& status) {
  try {
    const Admission admission = admit(tool, arguments);
    status = admission.is_admitted() ? ExitStatus::answered : ExitStatus::refused;
    return explanation_of({tool, arguments, admission}, handler, context, style);
  } catch (const std::overflow_error& error) {
    status = ExitStatus::refused;
    return explanation_of_failure(tool, arguments, error.what(), style);
  }
}

ExitStatus explain(const Typed& request) {
  const Handlers handlers = load_registry(request.files.registry);
  const KeywordArguments context = load_context(request.files.context);
  const ToolSpec& tool = declared_tool(request.tool, request.files.registry);
  ExitStatus status = ExitStatus::answered;
  print(account_of(tool, arguments_of(request), *handlers.find(tool.name()), context, output_style(request.colour),
                   status));
  return status;
}

void check_arguments(const Typed& request) {
  const auto arguments = std::count(request.arguments.begin(), request.arguments.end(), standard_input);
  const auto files =
      (request.files.registry == standard_input ? 1 : 0) + (request.files.context == standard_input ? 1 : 0);
  if (arguments + files > 1) {
    throw WrongUsage("standard input can be read only once: give the other files by path");
  }
  for (const std::string& argument : request.arguments) {
    if (argument != standard_input && argument.find('=') == std::string::npos) {
      throw WrongUsage("an argument must be NAME=VALUE, or - to read an object from standard input, not " + argument);
    }
  }
}

}  // namespace

Run declare_explain(CLI::App& command) {
  const auto request = std::make_shared<Typed>();
  add_registry_option(command, request->files);
  add_context_option(command, request->files);
  add_colour_option(command, request->colour);
  add_required_value(command, "TOOL", request->tool, "The tool that the request names");
  add_values(command, "ARGUMENTS", request->arguments, "NAME=VALUE, a value being JSON where it reads as JSON, or -",
             "NAME=VALUE");
  add_check(command, [request] { check_arguments(*request); });
  return [request] { return explain(*request); };
}

}  // namespace tool_binding::cli
