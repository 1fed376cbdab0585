// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "handlers/chosen_files.hpp"
#include "repository.hpp"
#include "source_tree.hpp"

namespace repo_daemon_test {

namespace {

using repo_daemon::Deadline;
using repo_daemon::Descriptor;
using repo_daemon::Glob;
using repo_daemon::Limits;
using repo_daemon::Listing;
using repo_daemon::Repository;

/// The paths of a listing, and what it lacks.
std::string one_line(const Listing& listing) {
  std::string line;
  for (const repo_daemon::SourceFile& file : listing.files) {
    line += file.path + " ";
  }
  return line + listing.left_out.words();
}

Listing listed(const SourceTree& tree, const Limits& limits, const std::vector<std::string>& patterns = {},
               const std::string& path = "") {
  return Repository(tree.root(), limits).files_below(path, Glob(patterns), Deadline(limits));
}

/// A tree whose directories lie one in another, of that name.
void make_chain(const SourceTree& tree, const std::string& name, int levels) {
  Descriptor directory(open(tree.root().c_str(), O_RDONLY | O_DIRECTORY));
  for (int level = 0; level < levels; ++level) {
    ASSERT_EQ(mkdirat(directory.number(), name.c_str(), 0700), 0);
    directory = Descriptor(openat(directory.number(), name.c_str(), O_RDONLY | O_DIRECTORY));
  }
}

}  // namespace

TEST(RepoDaemonWalk, keeps_within_its_limits_and_says_what_it_left_out) {
  SourceTree tree;
  tree.write("root/src/deep/er/a.cpp", "");
  tree.write("root/src-old/b.cpp", "");
  const std::string all =
      "README.md odd/data.bin odd/large.txt odd/latin.txt odd/long.txt src-old/b.cpp src/deep/er/a.cpp src/index.cpp "
      "src/index.hpp tools/run.py ";
  const struct {
    const char* shows;
    Limits limits;
    std::vector<std::string> patterns;
    std::string path;
    std::string expected;
  } rows[] = {
      {"all, by path", {}, {}, "", all},
      {"a file alone", {}, {}, "src/index.cpp", "src/index.cpp "},
      {"a file alone that no pattern matches", {}, {"*.hpp"}, "src/index.cpp", ""},
      {"files", {.files = 2}, {}, "", "README.md odd/data.bin , stopped at 2 files: narrow the path or the patterns"},
      {"as many files as there are", {.files = 10}, {}, "", all},
      {"patterns narrow before files are counted", {.files = 1}, {"*.py"}, "", "tools/run.py "},
      {"directories; what was read before is still seen",
       {.directories = 1},
       {},
       "",
       "README.md odd/data.bin odd/large.txt odd/latin.txt odd/long.txt , stopped at 1 directory: narrow the path or "
       "the "
       "patterns"},
      {"directories in which nothing can match are not entered", {.directories = 1}, {"tools/*"}, "", "tools/run.py "},
      {"entries", {.entries = 9}, {"*.bin"}, "odd", "odd/data.bin "},
      {"too few of them", {.entries = 3}, {"none"}, "odd", ", stopped at 3 entries: narrow the path or the patterns"},
      {"levels",
       {.levels = 1},
       {"*.cpp"},
       "",
       "src-old/b.cpp src/index.cpp , 1 directory not entered, too deep: begin further down"},
      {"levels are counted from the path on", {.levels = 1}, {"*.cpp"}, "src/deep", "src/deep/er/a.cpp "},
      {"bytes of names",
       {.name_bytes = 9},
       {"none"},
       "src",
       ", stopped at 9 bytes of names: narrow the path or the patterns"},
      {"time",
       {.time = std::chrono::milliseconds(0)},
       {},
       "",
       ", stopped at 0 seconds: narrow the path or the patterns"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(one_line(listed(tree, row.limits, row.patterns, row.path)), row.expected) << row.shows;
  }
}

TEST(RepoDaemonWalk, lists_one_level_with_its_empty_directories) {
  SourceTree tree;
  std::filesystem::create_directory(tree.root() + "/empty");
  const auto names = [&](const Limits& limits) {
    const repo_daemon::DirectoryListing listing =
        Repository(tree.root(), limits).entries_of("", Glob({}), Deadline(limits));
    std::string line;
    for (const repo_daemon::DirectoryEntry& entry : listing.entries) {
      line += entry.name + (entry.is_directory ? "/ " : " ");
    }
    return line + listing.left_out.words();
  };
  EXPECT_EQ(names({}), "README.md empty/ odd/ src/ tools/ ");
  EXPECT_EQ(names({.entries = 0}), ", stopped at 0 entries: narrow the path or the patterns");
  EXPECT_EQ(names({.directories = 0, .levels = 0}), names({})) << "no directory was to be entered";
}

TEST(RepoDaemonWalk, ends_in_a_chain_of_directories) {
  const SourceTree tree;
  make_chain(tree, "d", 300);
  EXPECT_EQ(one_line(listed(tree, {}, {"d/**"})), ", 1 directory not entered, too deep: begin further down");
}

TEST(RepoDaemonWalk, leaves_out_paths_that_no_request_could_give) {
  SourceTree tree;
  make_chain(tree, std::string(255, 'n'), 17);
  EXPECT_EQ(one_line(listed(tree, {}, {"n*/**"})), ", 1 path left out, longer than 4096 bytes");
}

TEST(RepoDaemonWalk, says_which_directories_it_could_not_read) {
  const SourceTree tree;
  make_chain(tree, "d", 50);
  const Repository repository(tree.root());
  rlimit usual = {};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &usual), 0);
  const Descriptor next(open("/dev/null", O_RDONLY));
  const rlimit few = {static_cast<rlim_t>(next.number()) + 20, usual.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
  const std::string line = one_line(repository.files_below("", Glob({}), Deadline({})));
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &usual), 0);
  EXPECT_TRUE(line.ends_with("tools/run.py , 1 directory not entered, not readable")) << line;
}

TEST(RepoDaemonWalk, reads_no_more_than_a_call_may) {
  const SourceTree tree;
  const auto remarks = [&](const Limits& limits, const Deadline& deadline) {
    const Repository repository(tree.root(), limits);
    const Listing listing = repository.files_below("src", Glob({}), Deadline({}));
    return repo_daemon::read_each(repository, listing.files, deadline, [](const auto&, std::string_view) {}).remarks();
  };
  EXPECT_EQ(remarks({}, Deadline({})), "");
  EXPECT_EQ(remarks({.file_bytes = 100}, Deadline({})), ", 1 file passed over: no text, too large or not readable");
  EXPECT_EQ(remarks({.read_bytes = 100}, Deadline({})),
            ", 1 file not read, stopped at 100 bytes: narrow the path or the patterns");
  EXPECT_EQ(remarks({}, Deadline({.time = std::chrono::milliseconds(0)})),
            ", 2 files not read, stopped at 10 seconds: narrow the path or the patterns");
}

}  // namespace repo_daemon_test
