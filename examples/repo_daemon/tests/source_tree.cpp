// SPDX-License-Identifier: MIT
#include "source_tree.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <cstdlib>
#include <fstream>

namespace repo_daemon_test {

namespace {

std::filesystem::path new_directory() {
  std::string pattern = testing::TempDir() + "repo_daemon_XXXXXX";
  EXPECT_NE(mkdtemp(pattern.data()), nullptr);
  return std::filesystem::canonical(pattern);
}

}  // namespace

SourceTree::SourceTree() : directory_(new_directory()) {
  write("root/README.md", "# Atlas\n\nFinds places.\n\n## Use it\n");
  write("root/src/index.cpp",
        "#include \"index.hpp\"\n\nint Index::open(int place) {\n  return place + reopen(place);\n}\n\n"
        "int Index::close() {\n  return open(0);\n}\n");
  write("root/src/index.hpp", "class Place;\n\nclass Index {\n  int open(int place);\n  int close();\n};\n");
  write("root/tools/run.py", "def main(path):\r\n    return OPEN(path)\r\n");
  write("root/odd/latin.txt", "caf\xE9 open\n");
  write("root/odd/long.txt", std::string(299, 'x') + "\xC3\xA4 open\n");
  write("root/odd/data.bin", std::string("open\0open\n", 10));
  write("root/odd/large.txt", std::string(9 * 1024 * 1024, '\n'));
  write("root/.hidden/key", "open\n");
  write("outside/secret.txt", "open\n");
  write("rooted/secret.txt", "open\n");
  std::filesystem::create_symlink(directory_ / "outside/secret.txt", directory_ / "root/leak.txt");
  std::filesystem::create_directory_symlink("../outside", directory_ / "root/leak");
  std::filesystem::create_directory_symlink("src", directory_ / "root/alias");
  EXPECT_EQ(mkfifo((directory_ / "root/pipe").c_str(), 0600), 0);
}

SourceTree::~SourceTree() {
  std::error_code failure;
  std::filesystem::remove_all(directory_, failure);
}

void SourceTree::write(const std::string& path, const std::string& content) {
  const std::filesystem::path file = directory_ / path;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << content;
  const timespec time = {1'000'000'000 - 3600 * written_++, 0};
  const std::array<timespec, 2> times = {time, time};
  EXPECT_EQ(utimensat(AT_FDCWD, file.c_str(), times.data(), 0), 0);
}

}  // namespace repo_daemon_test
