// SPDX-License-Identifier: MIT
#include "confined.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <vector>

#include "limits.hpp"
#include "text.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/value.hpp"

namespace repo_daemon {

namespace {

namespace tb = tool_binding;

[[noreturn]] void refuse(std::string_view path, std::string_view words) {
  throw tb::ArgumentError(tb::quoted_form(shown(path)).append(" ").append(words));
}

[[noreturn]] void refuse_by_error(std::string_view path, int error) {
  refuse(path, "cannot be opened: " + std::generic_category().message(error));
}

/// What is left of an absolute path once the root is taken off, and any other path as it is.
std::filesystem::path without_root(const std::filesystem::path& root, std::string_view asked) {
  const std::filesystem::path path = asked;
  if (path.is_relative()) {
    return path;
  }
  const auto [of_root, of_path] = std::mismatch(root.begin(), root.end(), path.begin(), path.end());
  if (of_root != root.end()) {
    refuse(asked, "is outside the root");
  }
  std::filesystem::path rest;
  for (auto part = of_path; part != path.end(); ++part) {
    rest /= *part;
  }
  return rest;
}

std::string joined(const std::vector<std::string>& parts) {
  std::string path;
  for (const std::string& part : parts) {
    path.append(path.empty() ? "" : "/").append(part);
  }
  return path;
}

void require_not_hidden(const std::filesystem::path& part, std::string_view asked) {
  if (part.native().starts_with('.')) {
    refuse(asked, "is hidden, and nothing hidden is served");
  }
}

mode_t kind_of(int directory, const char* name, const std::string& path) {
  struct stat facts;
  if (fstatat(directory, name, &facts, AT_SYMLINK_NOFOLLOW) != 0) {
    errno == ENOENT ? refuse(path, "is not there") : refuse_by_error(path, errno);
  }
  return facts.st_mode & S_IFMT;
}

void require_kind(mode_t kind, Wanted wanted, const std::string& path) {
  if (kind == S_IFLNK) {
    refuse(path, "is a symbolic link, and none is followed");
  }
  if (kind != S_IFDIR && kind != S_IFREG) {
    refuse(path, "is neither a file nor a directory");
  }
  if (wanted == Wanted::file && kind != S_IFREG) {
    refuse(path, "is a directory, not a file");
  }
  if (wanted == Wanted::directory && kind != S_IFDIR) {
    refuse(path, "is a file, not a directory");
  }
}

/// Opens one name of a directory, itself at `path`. Its kind is looked at before, so that no device is opened, and what
/// has taken its place since is refused by the flags or cannot keep the daemon waiting.
Descriptor open_part(const Descriptor& directory, const std::string& name, Wanted wanted, const std::string& path) {
  const mode_t kind = kind_of(directory.number(), name.c_str(), path);
  require_kind(kind, wanted, path);
  const int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | (kind == S_IFDIR ? O_DIRECTORY : 0);
  Descriptor opened(openat(directory.number(), name.c_str(), flags));
  if (opened.number() < 0) {
    refuse_by_error(path, errno);
  }
  struct stat facts;
  if (fstat(opened.number(), &facts) != 0 || (facts.st_mode & S_IFMT) != kind) {
    refuse(path, "has just been replaced");
  }
  return opened;
}

}  // namespace

Descriptor::~Descriptor() {
  if (number_ >= 0) {
    close(number_);
  }
}

std::string path_below(const std::filesystem::path& root, std::string_view asked) {
  if (asked.find('\0') != std::string_view::npos) {
    refuse(asked, "is not a path");
  }
  std::vector<std::string> parts;
  for (const std::filesystem::path& part : without_root(root, asked)) {
    if (part != ".." && part != "." && !part.empty()) {
      require_not_hidden(part, asked);
      parts.push_back(part.string());
    } else if (part == ".." && parts.empty()) {
      refuse(asked, "is outside the root");
    } else if (part == "..") {
      parts.pop_back();
    }
  }
  std::string path = joined(parts);
  if (path.size() > most_path_bytes) {
    refuse(asked, "is longer than the " + std::to_string(most_path_bytes) + " bytes of a path");
  }
  return path;
}

Descriptor open_below(const Descriptor& root, const std::string& path, Wanted wanted) {
  if (path.empty() && wanted == Wanted::file) {
    refuse(".", "is a directory, not a file");
  }
  Descriptor opened(openat(root.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  for (std::size_t begin = 0; begin < path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    const Wanted wanted_here = end == path.size() ? wanted : Wanted::directory;
    opened = open_part(opened, path.substr(begin, end - begin), wanted_here, path.substr(0, end));
    begin = end + 1;
  }
  return opened;
}

}  // namespace repo_daemon
