// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <iostream>

#include "choices.hpp"

namespace tool_binding::fuzz {

void require(bool holds, const char* invariant, std::string_view details) {
  if (!holds) {
    std::cerr << "broken: " << invariant << '\n' << details << std::endl;
    std::abort();
  }
}

}  // namespace tool_binding::fuzz
