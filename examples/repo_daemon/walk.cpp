// SPDX-License-Identifier: MIT
#include "walk.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <utility>

#include "text.hpp"

namespace repo_daemon {

namespace {

/// Whether a path of that length is left out.
bool is_long(std::size_t bytes) { return bytes > most_path_bytes; }

std::optional<struct stat> facts_of(const Descriptor& directory, const char* name) {
  struct stat facts;
  return fstatat(directory.number(), name, &facts, AT_SYMLINK_NOFOLLOW) == 0 ? std::optional(facts) : std::nullopt;
}

/// The facts of a regular file, nothing for what is gone by now or has been replaced.
std::optional<struct stat> file_facts(const Descriptor& directory, const std::string& name) {
  const std::optional<struct stat> facts = facts_of(directory, name.c_str());
  return facts && S_ISREG(facts->st_mode) ? facts : std::nullopt;
}

/// Whether an entry is a file or a directory or else, asked of the file only where its directory does not say.
mode_t kind_of(const Descriptor& directory, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN) {
    return static_cast<mode_t>(DTTOIF(entry.d_type));
  }
  const std::optional<struct stat> facts = facts_of(directory, entry.d_name);
  return facts ? facts->st_mode : 0;
}

std::string without_slash(const std::string& name) { return name.substr(0, name.size() - 1); }

}  // namespace

Listing Walk::files_below(Descriptor directory, const std::string& path) {
  begin_at(path);
  enter(std::move(directory), glob_.after(glob_.start(), path_));
  while (!levels_.empty() && takes_time()) {
    Level& level = levels_.back();
    path_.resize(level.path_bytes);
    if (level.next == level.names.size()) {
      levels_.pop_back();
      continue;
    }
    const std::string name = std::move(level.names[level.next++]);
    name.ends_with('/') ? see_directory(level, name) : see_file(level, name);
  }
  return std::move(listing_);
}

DirectoryListing Walk::entries_of(const Descriptor& directory, const std::string& path) {
  begin_at(path);
  const Glob::Places places = glob_.after(glob_.start(), path_);
  std::vector<DirectoryEntry> entries;
  for (const std::string& name : names_of(directory)) {
    const Glob::Places reached = glob_.after(places, name);
    if (!takes_time() || reached.none()) {
      continue;
    }
    if (name.ends_with('/')) {
      entries.push_back({.name = without_slash(name), .is_directory = true});
    } else if (const auto facts = file_facts(directory, name); facts && glob_.is_end(reached)) {
      entries.push_back({.name = name, .bytes = facts->st_size});
    }
  }
  return {std::move(entries), std::move(listing_.left_out)};
}

void Walk::begin_at(const std::string& path) { path_ = path.empty() ? "" : path + "/"; }

void Walk::enter(Descriptor directory, const Glob::Places& places) {
  std::vector<std::string> names = names_of(directory);
  levels_.push_back({std::move(directory), std::move(names), 0, path_.size(), places});
}

void Walk::see_directory(const Level& level, const std::string& name) {
  const Glob::Places places = glob_.after(level.places, name);
  if (is_stopped() || places.none()) {
    return;
  }
  LeftOut& left_out = listing_.left_out;
  if (levels_.size() > limits_.levels || is_long(path_.size() + name.size())) {
    ++(levels_.size() > limits_.levels ? left_out.deep_directories : left_out.long_paths);
    return;
  }
  if (++directories_ > limits_.directories) {
    stop_at(counted(limits_.directories, "directory", "directories"));
    return;
  }
  // A link is not followed, which it would be under a name that ends in "/".
  constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  Descriptor opened(openat(level.directory.number(), without_slash(name).c_str(), flags));
  if (opened.number() >= 0) {
    path_ += name;
    enter(std::move(opened), places);
  } else if (errno != ENOENT && errno != ENOTDIR && errno != ELOOP) {
    ++left_out.closed_directories;
  }
}

void Walk::see_file(const Level& level, const std::string& name) {
  if (!glob_.is_end(glob_.after(level.places, name))) {
    return;
  }
  const std::size_t bytes = path_.size() + name.size();
  if (is_long(bytes)) {
    ++listing_.left_out.long_paths;
    return;
  }
  const std::optional<struct stat> facts = file_facts(level.directory, name);
  if (!facts) {
    return;
  }
  if (listing_.files.size() == limits_.files) {
    stop_at(counted(limits_.files, "file"));
    is_over_ = true;
  } else if (name_bytes_ + bytes > limits_.name_bytes) {
    stop_at_names();
    is_over_ = true;
  } else {
    name_bytes_ += bytes;
    listing_.files.push_back(file_of(path_ + name, *facts));
  }
}

/// The names in a directory that are served, in their order. A directory's ends in "/", which puts it where its files
/// belong among the paths.
std::vector<std::string> Walk::names_of(const Descriptor& directory) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(fdopendir(dup(directory.number())), closedir);
  if (!entries) {
    ++listing_.left_out.closed_directories;
    return names;
  }
  const dirent* entry = nullptr;
  while (takes_time() && (entry = readdir(entries.get())) != nullptr && takes(entry->d_name)) {
    const std::string_view name = entry->d_name;
    const mode_t kind = name.starts_with('.') ? 0 : kind_of(directory, *entry);
    if (S_ISDIR(kind)) {
      names.push_back(std::string(name) + "/");
    } else if (S_ISREG(kind)) {
      names.emplace_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Whether there is time left.
bool Walk::takes_time() {
  if (!is_over_ && deadline_.has_passed()) {
    stop_at(in_seconds(limits_.time));
    is_over_ = true;
  }
  return !is_over_;
}

/// Whether one more entry may be looked at.
bool Walk::takes(std::string_view name) {
  name_bytes_ += name.size();
  if (name != "." && name != ".." && ++entries_ > limits_.entries) {
    stop_at(counted(limits_.entries, "entry", "entries"));
  } else if (name_bytes_ > limits_.name_bytes) {
    stop_at_names();
  }
  return !is_stopped();
}

void Walk::stop_at_names() { stop_at(counted(limits_.name_bytes, "byte", "bytes") + " of names"); }

void Walk::stop_at(std::string limit) {
  if (!is_stopped()) {
    listing_.left_out.stopped_at = std::move(limit);
  }
}

}  // namespace repo_daemon
