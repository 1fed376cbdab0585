// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

/// Paths and files below one directory, and nowhere else.
///
/// A path is read by its words alone, and each of its parts is opened from the directory before it without following a
/// link: whatever is renamed or linked meanwhile, nothing outside the root is ever opened.
namespace repo_daemon {

/// An open file or directory, closed with its owner.
class Descriptor {
 public:
  explicit Descriptor(int number) noexcept : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor();

  [[nodiscard]] int number() const noexcept { return number_; }

 private:
  int number_;
};

/// What a request may ask to open.
enum class Wanted { file, directory, either };

/// `asked` as the path from `root` on, its parts joined by "/" without "." and "..", empty for the root itself. Throws
/// ArgumentError for a path that is not below the root, is hidden there or is longer than `most_path_bytes`.
[[nodiscard]] std::string path_below(const std::filesystem::path& root, std::string_view asked);

/// Opens what stands at `path`, which `path_below` returned. Throws ArgumentError for what is not there, for a link
/// anywhere on the way and for what is neither a regular file nor a directory: a device or a pipe is not touched.
[[nodiscard]] Descriptor open_below(const Descriptor& root, const std::string& path, Wanted wanted);

}  // namespace repo_daemon
