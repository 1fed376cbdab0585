// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <locale>

namespace {

/// Digits and words as no locale has them.
struct OddPunctuation : std::numpunct<char> {
  char do_decimal_point() const override { return ';'; }
  char do_thousands_sep() const override { return '5'; }
  std::string do_grouping() const override { return "\1"; }
  std::string do_truename() const override { return "0"; }
};

/// With TEST_LOCALE set, all tests of a program run under that locale, in C and in C++: none may answer differently.
class OtherLocale : public ::testing::Environment {
  void SetUp() override {
    const char* const name = std::getenv("TEST_LOCALE");
    if (name != nullptr) {
      std::locale::global(std::locale(std::locale(name), new OddPunctuation));
      ASSERT_NE(std::setlocale(LC_ALL, name), nullptr) << name;
    }
  }
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new OtherLocale);

}  // namespace
