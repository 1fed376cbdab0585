// SPDX-License-Identifier: MIT
#include "model/near_name.hpp"

#include <algorithm>
#include <string>

#include "text/code_points.hpp"

namespace tool_binding::model {

namespace {

struct Block {
  std::size_t a = 0;
  std::size_t b = 0;
  std::size_t size = 0;
};

/// The longest run that both have, the one that begins first in `a`, then first in `b`; none goes through a character
/// of `popular`.
Block longest_run(std::u32string_view a, std::u32string_view b, std::u32string_view popular) {
  Block best;
  std::vector<std::size_t> before(b.size() + 1);  // the lengths of the runs that end before each place of b
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::vector<std::size_t> here(b.size() + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const bool is_same = a[i] == b[j] && popular.find(a[i]) == std::u32string_view::npos;
      here[j + 1] = is_same ? before[j] + 1 : 0;
      if (here[j + 1] > best.size) {
        best = {i + 1 - here[j + 1], j + 1 - here[j + 1], here[j + 1]};
      }
    }
    before = here;
  }
  return best;
}

/// `block` and all that is the same on both sides of it, popular or not.
Block widened(Block block, std::u32string_view a, std::u32string_view b) {
  while (block.a > 0 && block.b > 0 && a[block.a - 1] == b[block.b - 1]) {
    block = {block.a - 1, block.b - 1, block.size + 1};
  }
  while (block.a + block.size < a.size() && block.b + block.size < b.size() &&
         a[block.a + block.size] == b[block.b + block.size]) {
    ++block.size;
  }
  return block;
}

/// The number of characters in the matching blocks of `a` and `b`.
std::size_t matched(std::u32string_view a, std::u32string_view b, std::u32string_view popular) {
  const Block block = widened(longest_run(a, b, popular), a, b);
  if (block.size == 0) {
    return 0;
  }
  return block.size + matched(a.substr(0, block.a), b.substr(0, block.b), popular) +
         matched(a.substr(block.a + block.size), b.substr(block.b + block.size), popular);
}

/// The characters that occur so often in a long word that no run is looked for through them.
std::u32string popular_in(std::u32string_view word) {
  std::u32string popular;
  for (const char32_t character : word) {
    const auto times = static_cast<std::size_t>(std::count(word.begin(), word.end(), character));
    if (word.size() >= 200 && times > word.size() / 100 + 1) {
      popular += character;
    }
  }
  return popular;
}

double similarity(std::u32string_view name, std::u32string_view word) {
  const std::size_t both = name.size() + word.size();
  return both == 0 ? 1.0 : 2.0 * static_cast<double>(matched(name, word, popular_in(word))) / static_cast<double>(both);
}

}  // namespace

std::optional<Text> nearest(std::string_view word, const std::vector<Text>& names) {
  const std::u32string decoded_word = text::decode(word);
  std::optional<Text> best;
  double best_similarity = 0.6;
  for (const Text& name : names) {
    const std::u32string decoded = text::decode(name);
    const double similar = similarity(decoded, decoded_word);
    const bool is_greater = !best || decoded > text::decode(*best);
    if (similar > best_similarity || (similar == best_similarity && is_greater)) {
      best = name;
      best_similarity = similar;
    }
  }
  return best;
}

}  // namespace tool_binding::model
