// SPDX-License-Identifier: MIT
#include <algorithm>

#include "choices.hpp"
#include "text/code_points.hpp"
#include "text/lower_case.hpp"
#include "text/unicode.hpp"
#include "text/white_space.hpp"
#include "types/text_values.hpp"

/// A text stripped of white space and brought to lower case, held to what both mean for its code points.
namespace tool_binding::fuzz {
namespace {

constexpr std::string_view pieces[] = {"a",    "A",      "\u03A3",       "\u00ad", ".",      "'",
                                       " ",    "\u3000", "\x1F",         "\u200B", "\u0130", "\u01C5",
                                       "\xE3", "\x80",   "\xED\xA0\x80", "\u00DF", "\u1E9E", "TRUE"};

std::string make_letters(Choices& choices) {
  if (choices.flag()) {
    return std::string(choices.all_bytes());
  }
  std::string letters;
  while (!choices.empty()) {
    letters += choices.one_of(pieces);
  }
  return letters;
}

/// Whether the first code point that is not case-ignorable is cased.
template <class Range>
bool meets_cased(const Range& range) {
  const auto found = std::find_if_not(range.begin(), range.end(), [](char32_t character) {
    return !text::is_cased(character) && text::is_case_ignorable(character);
  });
  return found != range.end() && text::is_cased(*found);
}

std::string lowered(std::string_view letters) {
  const std::u32string all = text::decode(letters);
  std::string lower;
  for (std::size_t place = 0; place < all.size(); ++place) {
    const text::CodePoint next = text::next_code_point(letters);
    const std::u32string before(all.rend() - static_cast<std::ptrdiff_t>(place), all.rend());
    const auto mapping = text::lower_mapping(next.value);
    if (next.value == U'\u03A3') {
      lower += meets_cased(before) && !meets_cased(all.substr(place + 1)) ? "\u03C2" : "\u03C3";
    } else if (mapping[0] == next.value) {
      lower += letters.substr(0, next.size);
    } else {
      text::append_code_point(lower, mapping[0]);
      if (mapping[1] != 0) {
        text::append_code_point(lower, mapping[1]);
      }
    }
    letters.remove_prefix(next.size);
  }
  return lower;
}

std::u32string stripped(std::u32string characters) {
  const auto is_visible = [](char32_t character) { return !text::is_white_space(character); };
  characters.erase(std::find_if(characters.rbegin(), characters.rend(), is_visible).base(), characters.end());
  characters.erase(characters.begin(), std::find_if(characters.begin(), characters.end(), is_visible));
  return characters;
}

void check(Choices choices) {
  const std::string letters = make_letters(choices);
  if (letters.size() > 4096) {
    return;  // the expected lower case is quadratic
  }
  const std::string_view strip = text::strip(letters);
  require(text::decode(strip) == stripped(text::decode(letters)), "white space goes from both ends", letters);
  require(text::is_blank(letters) == strip.empty(), "blank is what nothing is left of", letters);
  const Text lower = text::lower_case(letters);
  require(lower == lowered(letters), "each code point is lowered", letters);
  require(text::lower_case(lower) == lower, "what is in lower case stays", letters);
  require(types::read_bool(letters) == types::read_bool(text::lower_case(strip)),
          "case does not matter in a truth word", letters);
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
