// SPDX-License-Identifier: MIT
#include "support/questions.hpp"

namespace tool_binding {
namespace {

[[maybe_unused]] const bool rows =
    test_rows("action", expect_answered) && test_rows("coercion", expect_answered) &&
    test_rows("enumerations_and_bounds", expect_answered) && test_rows("missing_arguments", expect_answered) &&
    test_rows("normalize_arguments", expect_answered) && test_rows("unknown_parameter", expect_answered);

}  // namespace
}  // namespace tool_binding
