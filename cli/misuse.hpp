// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace CLI {
class App;
class Error;
}  // namespace CLI

namespace tool_binding::cli {

/// What was wrong with the usage, in lines for standard error. A misspelled command or option is named first, with the
/// one that was probably meant: what else is wrong may follow from it.
[[nodiscard]] std::string misuse_words(const CLI::App* app, const CLI::Error& misuse);

}  // namespace tool_binding::cli
