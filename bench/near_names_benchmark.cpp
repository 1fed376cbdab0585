// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "allocations.hpp"
#include "near_names/nearest.hpp"
#include "textbook_search.hpp"

/// Two misspelled names among 16 and among 1,000: the layer's search, and the textbook's with the same answers.
namespace tool_binding::bench {

namespace {

constexpr std::array<std::string_view, 40> nouns = {
    "limit",  "query",   "path",   "offset", "threshold", "regex",  "kinds",   "mode",   "language", "context",
    "sort",   "line",    "file",   "symbol", "depth",     "name",   "pattern", "result", "encoding", "branch",
    "commit", "author",  "date",   "size",   "format",    "scope",  "filter",  "prefix", "suffix",   "include",
    "column", "version", "engine", "index",  "timeout",   "target", "module",  "source", "message",  "token"};
constexpr std::array<std::string_view, 25> qualifiers = {
    "",      "max_", "min_",  "default_", "include_", "exclude_", "start_",  "end_",  "first_",
    "last_", "new_", "old_",  "base_",    "with_",    "only_",    "ignore_", "show_", "show_all_",
    "is_",   "raw_", "full_", "parent_",  "sub_",     "total_",   "remote_"};

/// Names as tools declare them: the nouns first, then each of them qualified, one noun being a plural in parts.
std::vector<std::string> names(std::size_t count) {
  std::vector<std::string> all;
  for (const std::string_view qualifier : qualifiers) {
    for (const std::string_view noun : nouns) {
      all.push_back(std::string(qualifier).append(noun).append(noun == "context" ? "_lines" : ""));
    }
  }
  all.resize(count);
  return all;
}

void layer(benchmark::State& state, const std::string& word, std::size_t count) {
  std::vector<Text> texts;
  for (const std::string& name : names(count)) {
    texts.emplace_back(name);
  }
  const detail::NearCandidates candidates(texts);
  const Text* const near = _nearest(word, candidates);
  const std::vector<std::string> all = names(count);
  if (TextbookSearch(word).nearest(all) != (near == nullptr ? std::string_view() : near->view())) {
    return state.SkipWithError("the textbook has another answer");
  }
  const std::size_t before = allocations();
  for (auto _ : state) {
    benchmark::DoNotOptimize(_nearest(word, candidates));
  }
  state.counters["allocations"] = static_cast<double>(allocations() - before) / static_cast<double>(state.iterations());
}

void textbook(benchmark::State& state, const std::string& word, std::size_t count) {
  const std::vector<std::string> all = names(count);
  for (auto _ : state) {
    benchmark::DoNotOptimize(TextbookSearch(word).nearest(all));
  }
}

void add_all() {
  for (const std::string word : {"lmit", "contxt_lines"}) {
    for (const std::size_t count : {std::size_t{16}, std::size_t{1000}}) {
      const std::string what = '/' + word + '/' + std::to_string(count);
      benchmark::RegisterBenchmark(("layer" + what).c_str(), [=](auto& state) { layer(state, word, count); });
      benchmark::RegisterBenchmark(("textbook" + what).c_str(), [=](auto& state) { textbook(state, word, count); });
    }
  }
}

}  // namespace

}  // namespace tool_binding::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  tool_binding::bench::add_all();
  benchmark::RunSpecifiedBenchmarks();
}
