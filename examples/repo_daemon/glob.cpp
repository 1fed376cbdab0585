// SPDX-License-Identifier: MIT
#include "glob.hpp"

namespace repo_daemon {

namespace {

/// Takes the first character of UTF-8 off a text that is not empty.
std::string_view take_character(std::string_view& text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
    ++length;
  }
  const std::string_view character = text.substr(0, length);
  text.remove_prefix(length);
  return character;
}

bool take_word(std::string_view& text, std::string_view word) {
  if (!text.starts_with(word)) {
    return false;
  }
  text.remove_prefix(word.size());
  return true;
}

}  // namespace

Glob::Glob(std::string_view pattern) : of_name_(pattern.find('/') == std::string_view::npos) {
  while (!pattern.empty()) {
    if (take_word(pattern, "**/")) {
      parts_.push_back({Kind::directories});
    } else if (take_word(pattern, "**")) {
      parts_.push_back({Kind::anything});
    } else if (take_word(pattern, "*")) {
      parts_.push_back({Kind::within_a_name});
    } else if (take_word(pattern, "?")) {
      parts_.push_back({Kind::any_character});
    } else {
      parts_.push_back({Kind::one_character, std::string(take_character(pattern))});
    }
  }
}

bool Glob::matches(std::string_view path) const {
  if (of_name_) {
    path.remove_prefix(path.rfind('/') + 1);
  }
  Places places(parts_.size() + 1);
  enter(places, 0);
  while (!path.empty()) {
    places = after(places, take_character(path));
  }
  return places.back();
}

/// Marks a place, and those behind it that are reached because a part may stand for nothing.
void Glob::enter(Places& places, std::size_t place) const {
  places[place] = true;
  while (place < parts_.size() && parts_[place].character.empty() && parts_[place].kind != Kind::any_character) {
    places[++place] = true;
  }
}

Glob::Places Glob::after(const Places& places, std::string_view character) const {
  const bool separates = character == "/";
  Places next(places.size());
  for (std::size_t place = 0; place < parts_.size(); ++place) {
    const Kind kind = parts_[place].kind;
    if (!places[place]) {
      continue;
    }
    if (kind == Kind::anything || (kind == Kind::within_a_name && !separates)) {
      enter(next, place);
    }
    if (kind == Kind::directories) {
      next[place] = true;
    }
    if ((kind == Kind::directories && separates) || (kind == Kind::any_character && !separates) ||
        (kind == Kind::one_character && parts_[place].character == character)) {
      enter(next, place + 1);
    }
  }
  return next;
}

}  // namespace repo_daemon
