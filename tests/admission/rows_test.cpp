// SPDX-License-Identifier: MIT
#include "support/walk.hpp"

namespace tool_binding {
namespace {

class Admission : public testing::TestWithParam<const char*> {};

TEST_P(Admission, IsAsTheRowsSay) { expect_walked(std::string(GetParam()) + ".rows"); }

INSTANTIATE_TEST_SUITE_P(Rows, Admission,
                         testing::Values("action", "coercion", "enumerations_and_bounds", "missing_arguments",
                                         "normalize_arguments", "unknown_parameter"),
                         [](const auto& file) { return std::string(file.param); });

}  // namespace
}  // namespace tool_binding
