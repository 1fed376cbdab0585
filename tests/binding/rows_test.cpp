// SPDX-License-Identifier: MIT
#include "support/questions.hpp"

namespace tool_binding {
namespace {

[[maybe_unused]] const bool rows =
    test_rows("bind_arguments", expect_answered) && test_rows("action_default", expect_answered);

}  // namespace
}  // namespace tool_binding
