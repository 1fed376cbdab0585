// SPDX-License-Identifier: MIT
#include "choices.hpp"
#include "model/near_name.hpp"
#include "near_names/nearest.hpp"

/// A word and candidates of few different characters, so that much of them matches.
namespace tool_binding::fuzz {
namespace {

/// The last two stand in one class of characters, with "a".
constexpr std::string_view characters[] = {"a", "b", "c", "d", "\u00e9", "\xFF", "\U0001F600", "\u0141", "\U00010061"};

/// Runs of one character make words long enough to have popular ones.
std::string make_name(Choices& choices) {
  std::string name;
  for (std::size_t runs = choices.below(24); runs > 0; --runs) {
    const std::string_view character = choices.one_of(characters);
    const std::size_t length = choices.below(16) == 15 ? choices.below(120) : 1 + choices.below(3);
    for (std::size_t count = 0; count < length && name.size() < 400; ++count) {
      name += character;
    }
  }
  return name;
}

void check(Choices choices) {
  const std::string word = make_name(choices);
  std::vector<Text> names;
  while (!choices.empty() && names.size() < 4) {
    names.emplace_back(make_name(choices));
  }
  const detail::NearCandidates candidates(names);
  const Text* const found = _nearest(word, candidates);
  const std::optional<Text> expected = model::nearest(word, names);
  require(found == nullptr ? !expected : expected == *found, "the nearest name is the textbook's", word);
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
