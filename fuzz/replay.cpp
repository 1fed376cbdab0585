// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void replay(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string input((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (!file) {
    std::cerr << "cannot read " << path << '\n';
    std::exit(2);
  }
  std::cout << path.filename().string() << std::endl;
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

}  // namespace

/// Runs a fuzzer over the files of a corpus, once each, without libFuzzer. A broken invariant ends the program.
int main(int count, char** arguments) {
  int replayed = 0;
  for (int place = 1; place < count; ++place) {
    for (const auto& file : std::filesystem::directory_iterator(arguments[place])) {
      replay(file.path());
      ++replayed;
    }
  }
  if (replayed == 0) {
    std::cerr << "no input to replay\n";
    return 2;
  }
  return 0;
}
