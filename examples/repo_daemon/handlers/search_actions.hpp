// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "handlers/keywords.hpp"
#include "repository.hpp"

/// The actions of the tool "search", a file each.
namespace repo_daemon {

[[nodiscard]] std::string find_text(const Keywords& keywords, const Repository& repository);
[[nodiscard]] std::string list_directory(const Keywords& keywords, const Repository& repository);
[[nodiscard]] std::string outline_file(const Keywords& keywords, const Repository& repository);
[[nodiscard]] std::string count_lines(const Keywords& keywords, const Repository& repository);

}  // namespace repo_daemon
