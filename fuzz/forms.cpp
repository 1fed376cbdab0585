// SPDX-License-Identifier: MIT
#include <charconv>
#include <cmath>

#include "choices.hpp"
#include "text/code_points.hpp"
#include "text/unicode.hpp"
#include "tool_binding/value.hpp"
#include "values.hpp"

/// A value and its quoted form, read from front to end next to each other.
namespace tool_binding::fuzz {
namespace {

/// Takes quoted forms from the front of a text and compares them with what they should show.
class Shown {
 public:
  explicit Shown(std::string_view form) : rest_(form) {}

  [[nodiscard]] bool at_end() const { return rest_.empty(); }

  void take(const Value& value) {
    switch (value.kind()) {
      case Kind::null:
        return take_words("None");
      case Kind::boolean:
        return take_words(value.boolean() ? "True" : "False");
      case Kind::integer:
        return require(Integer::from_decimal(token()) == value.integer(), "an integer shows its digits", rest_);
      case Kind::floating:
        return take_floating(value.floating());
      case Kind::text:
        return take_text(value.text());
      case Kind::list:
        return take_list(value);
      case Kind::mapping:
        return take_mapping(value);
    }
  }

 private:
  void take_words(std::string_view words) {
    require(rest_.starts_with(words), "the form has its fixed parts", rest_);
    rest_.remove_prefix(words.size());
  }

  std::string_view token() {
    const std::string_view token = rest_.substr(0, rest_.find_first_of(",]}"));
    rest_.remove_prefix(token.size());
    return token;
  }

  void take_floating(double number) {
    const std::string_view form = token();
    double shown = 0;
    const auto read = std::from_chars(form.data(), form.data() + form.size(), shown);
    require(read.ec == std::errc() && read.ptr == form.data() + form.size(), "a number is shown as one", form);
    require(std::isnan(number) ? std::isnan(shown) : shown == number, "a number reads back as itself", form);
    require(std::isnan(number) || std::signbit(shown) == std::signbit(number), "a number keeps its sign", form);
    require(form.find_first_of(".en") != std::string_view::npos, "a floating number is not an integer", form);
    const double magnitude = std::fabs(number);
    const bool usual = magnitude == 0 || (magnitude >= 1e-4 && magnitude < 1e16) || !std::isfinite(number);
    require(usual == (form.find('e') == std::string_view::npos), "an exponent stands only where it is needed", form);
  }

  void take_text(std::string_view text) {
    const bool in_double = text.find('\'') != std::string_view::npos && text.find('"') == std::string_view::npos;
    const char quote = in_double ? '"' : '\'';
    take_words(std::string_view(&quote, 1));
    for (const char32_t expected : text::decode(text)) {
      require(take_character(quote) == expected, "a text shows its code points", text);
    }
    take_words(std::string_view(&quote, 1));
  }

  char32_t take_character(char quote) {
    const text::CodePoint next = text::next_code_point(rest_);
    rest_.remove_prefix(next.size);
    require(text::is_printable(next.value) && next.value != static_cast<unsigned char>(quote),
            "what is left unchanged is printable and not a quote", rest_);
    return next.value == U'\\' ? take_escape(quote) : next.value;
  }

  char32_t take_escape(char quote) {
    const char letter = rest_.front();
    rest_.remove_prefix(1);
    if (letter == '\\' || letter == quote) {
      return static_cast<unsigned char>(letter);
    }
    if (const std::size_t place = std::string_view("tnr").find(letter); place != std::string_view::npos) {
      return U"\t\n\r"[place];
    }
    require(letter == 'x' || letter == 'u' || letter == 'U', "an escape is one of the known", rest_);
    const std::size_t size = letter == 'x' ? 2 : letter == 'u' ? 4 : 8;
    std::uint32_t value = 0;
    const auto read = std::from_chars(rest_.data(), rest_.data() + size, value, 16);
    require(read.ptr == rest_.data() + size, "an escape has all its digits", rest_);
    require(!text::is_printable(value) && value >> (4 * size / 2) >= (size == 2 ? 0 : 1),
            "an escape is needed, and no longer than needed", rest_);
    rest_.remove_prefix(size);
    return value;
  }

  void take_list(const Value& value) {
    take_words("[");
    const char* between = "";
    for (const Value& item : value.list()) {
      take_words(between);
      take(item);
      between = ", ";
    }
    take_words("]");
  }

  void take_mapping(const Value& value) {
    take_words("{");
    const char* between = "";
    for (const auto& [name, content] : value.mapping()) {
      take_words(between);
      take_text(name);
      take_words(": ");
      take(content);
      between = ", ";
    }
    take_words("}");
  }

  std::string_view rest_;
};

void check(Choices choices) {
  const Value value = choices.flag() ? Value(choices.all_bytes()) : make_value(choices, 4);
  const std::string quoted = quoted_form(value);
  Shown shown(quoted);
  shown.take(value);
  require(shown.at_end(), "nothing follows the quoted form", quoted);
  require(plain_form(value) == (value.is_text() ? value.text() : quoted), "only a text is plainer than quoted", quoted);
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
