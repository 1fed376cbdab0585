// SPDX-License-Identifier: MIT
#include "repository.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <system_error>

#include "text.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/value.hpp"
#include "walk.hpp"

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

/// The facts of a file, nothing for a directory.
std::optional<struct stat> file_facts(const Descriptor& opened) {
  struct stat facts;
  return fstat(opened.number(), &facts) == 0 && S_ISREG(facts.st_mode) ? std::optional(facts) : std::nullopt;
}

std::string name_of(const std::string& path) { return path.substr(path.rfind('/') + 1); }

[[noreturn]] void refuse(const std::string& path, const std::string& words) {
  throw tb::ArgumentError(tb::quoted_form(shown(path)).append(" ").append(words));
}

}  // namespace

Repository::Repository(const std::filesystem::path& directory, const Limits& limits)
    : limits_(limits), root_(std::filesystem::canonical(directory)), directory_(opened_root(root_)) {}

Listing Repository::files_below(std::string_view asked, const Glob& glob, const Deadline& deadline) const {
  const std::string path = path_of(asked);
  Descriptor opened = open_below(directory_, path, Wanted::either);
  const std::optional<struct stat> facts = file_facts(opened);
  if (!facts) {
    return Walk(limits_, glob, deadline).files_below(std::move(opened), path);
  }
  Listing listing;
  if (glob.matches(path)) {
    listing.files.push_back(file_of(path, *facts));
  }
  return listing;
}

DirectoryListing Repository::entries_of(std::string_view asked, const Glob& glob, const Deadline& deadline) const {
  const std::string path = path_of(asked);
  const Descriptor opened = open_below(directory_, path, Wanted::either);
  const std::optional<struct stat> facts = file_facts(opened);
  if (!facts) {
    return Walk(limits_, glob, deadline).entries_of(opened, path);
  }
  DirectoryListing listing;
  if (glob.matches(path)) {
    listing.entries.push_back({.name = name_of(path), .bytes = facts->st_size});
  }
  return listing;
}

std::string Repository::text_of(const std::string& path, const Deadline& deadline) const {
  std::string content = content_of(path, deadline);
  if (content.size() > limits_.file_bytes) {
    refuse(path, "is larger than the " + std::to_string(limits_.file_bytes) + " bytes that are read of one file");
  }
  if (content.find('\0') != std::string::npos) {
    refuse(path, "holds binary data, not text");
  }
  return content;
}

/// The content, or enough of it to see that it is more than a request looks at, whatever the file grows to meanwhile.
std::string Repository::content_of(const std::string& path, const Deadline& deadline) const {
  constexpr std::size_t piece = 64 * 1024;
  const Descriptor file = open_below(directory_, path, Wanted::file);
  std::string content;
  std::size_t filled = 0;
  while (filled <= limits_.file_bytes) {
    if (deadline.has_passed()) {
      refuse(path, "could not be read in time");
    }
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

}  // namespace repo_daemon
