// SPDX-License-Identifier: MIT
#include "repository.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <system_error>

#include "text.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/value.hpp"

namespace repo_daemon {

namespace {

namespace tb = tool_binding;

Descriptor opened_root(const std::filesystem::path& root) {
  Descriptor opened(open(root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.number() < 0) {
    throw std::system_error(errno, std::generic_category(), root.string());
  }
  return opened;
}

SourceFile file_of(std::string path, const struct stat& facts) {
  return {std::move(path), facts.st_size, std::int64_t{facts.st_mtim.tv_sec} * 1'000'000'000 + facts.st_mtim.tv_nsec};
}

/// Collects the files of one directory after another; the directories found meanwhile wait their turn, so that neither
/// the stack nor the number of open files grows with the depth of the tree.
class Walk {
 public:
  explicit Walk(const Descriptor& root) : root_(root) {}

  Listing files_below(const std::string& path) {
    waiting_.push_back(path);
    while (!waiting_.empty() && listing_.complete) {
      const std::string directory = std::move(waiting_.back());
      waiting_.pop_back();
      visit(directory);
    }
    std::sort(listing_.files.begin(), listing_.files.end(),
              [](const SourceFile& left, const SourceFile& right) { return left.path < right.path; });
    return std::move(listing_);
  }

 private:
  /// A directory that cannot be read, or is gone by now, has no files.
  void visit(const std::string& path) {
    try {
      enter(path, open_below(root_, path, Wanted::directory));
    } catch (const tb::ArgumentError&) {
    }
  }

  void enter(const std::string& path, const Descriptor& directory) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(fdopendir(dup(directory.number())), closedir);
    while (entries && listing_.complete) {
      const dirent* const entry = readdir(entries.get());
      if (entry == nullptr) {
        return;
      }
      if (entry->d_name[0] != '.') {
        add(directory, entry->d_name, path.empty() ? entry->d_name : path + "/" + entry->d_name);
      }
    }
  }

  void add(const Descriptor& directory, const char* name, std::string path) {
    struct stat facts;
    if (fstatat(directory.number(), name, &facts, AT_SYMLINK_NOFOLLOW) != 0) {
      return;
    }
    if (S_ISDIR(facts.st_mode)) {
      waiting_.push_back(std::move(path));
    } else if (S_ISREG(facts.st_mode)) {
      listing_.files.push_back(file_of(std::move(path), facts));
    }
    listing_.complete = listing_.files.size() + waiting_.size() <= Repository::most_files;
  }

  const Descriptor& root_;
  Listing listing_;
  std::vector<std::string> waiting_;
};

[[noreturn]] void refuse(const std::string& path, const std::string& words) {
  throw tb::ArgumentError(tb::quoted_form(shown(path)).append(" ").append(words));
}

/// The content, or enough of it to see that it is more than a request looks at, whatever the file grows to meanwhile.
std::string content_of(const Descriptor& file, const std::string& path) {
  constexpr std::size_t piece = 64 * 1024;
  std::string content;
  std::size_t filled = 0;
  while (filled <= Repository::most_bytes) {
    content.resize(filled + piece);
    const ssize_t count = ::read(file.number(), content.data() + filled, piece);
    if (count < 0 && errno != EINTR) {
      refuse(path, "cannot be read: " + std::generic_category().message(errno));
    }
    filled += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    if (count == 0) {
      break;
    }
  }
  content.resize(filled);
  return content;
}

}  // namespace

Repository::Repository(const std::filesystem::path& directory)
    : root_(std::filesystem::canonical(directory)), directory_(opened_root(root_)) {}

Listing Repository::files_below(std::string_view asked) const {
  const std::string path = path_of(asked);
  const Descriptor opened = open_below(directory_, path, Wanted::either);
  struct stat facts;
  if (fstat(opened.number(), &facts) == 0 && S_ISREG(facts.st_mode)) {
    return {.files = {file_of(path, facts)}};
  }
  return Walk(directory_).files_below(path);
}

std::string Repository::text_of(const std::string& path) const {
  std::string content = content_of(open_below(directory_, path, Wanted::file), path);
  if (content.size() > most_bytes) {
    refuse(path, "is larger than the " + std::to_string(most_bytes) + " bytes that are read of one file");
  }
  if (content.find('\0') != std::string::npos) {
    refuse(path, "holds binary data, not text");
  }
  return content;
}

}  // namespace repo_daemon
