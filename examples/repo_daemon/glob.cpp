// SPDX-License-Identifier: MIT
#include "glob.hpp"

#include <algorithm>

#include "text.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/value.hpp"

namespace repo_daemon {

namespace tb = tool_binding;

/// Reads patterns into the parts of a glob.
class GlobParser {
 public:
  explicit GlobParser(std::vector<Glob::Part>& parts) : parts_(parts) {}

  void read_all(std::span<const std::string> patterns) {
    const std::size_t fork = add({.kind = Kind::fork});
    std::vector<std::size_t> ends;
    for (const std::string& pattern : patterns) {
      parts_[fork].ways.push_back(parts_.size());
      read(pattern);
      ends.push_back(add({.kind = Kind::fork}));
    }
    lead_here(ends);
  }

 private:
  using Kind = Glob::Kind;

  void read(std::string_view pattern) {
    whole_ = rest_ = pattern;
    take("./") || take("/");
    if (whole_.find('/') == std::string_view::npos) {
      add_directories();
    }
    while (!rest_.empty()) {
      read_part();
    }
    if (whole_.ends_with('/')) {
      add({.kind = Kind::anything});
    }
  }

  void read_part() {
    if (take("**/")) {
      add_directories();
    } else if (take("**")) {
      add({.kind = Kind::anything});
    } else if (take("*")) {
      add({.kind = Kind::within_a_name});
    } else if (take("?")) {
      add({.kind = Kind::one_of, .is_negated = true});
    } else if (take("[")) {
      read_set();
    } else if (take("{")) {
      read_alternatives();
    } else {
      const char32_t character = read_character();
      add({.kind = Kind::one_of, .characters = {{character, character}}});
    }
  }

  /// Any number of directories: the fork behind each leads into one more or on.
  void add_directories() {
    const std::size_t fork = add({.kind = Kind::fork});
    parts_[fork].ways = {fork + 1, fork + 2};
    add({.kind = Kind::directory});
  }

  void read_set() {
    Glob::Part set = {.kind = Kind::one_of};
    set.is_negated = take("!") || take("^");
    if (rest_.starts_with("[:")) {
      refuse("names a class of characters, which is not known: list the characters, as [a-z]");
    }
    do {
      require_more('[', ']');
      Glob::Range range = {};
      range.first = range.last = read_character();
      if (rest_.size() > 1 && rest_[1] != ']' && take("-")) {
        range.last = read_character();
      }
      if (range.last < range.first) {
        refuse("has a range whose ends are the wrong way round");
      }
      set.characters.push_back(range);
    } while (!take("]"));
    add(std::move(set));
  }

  void read_alternatives() {
    const std::size_t fork = add({.kind = Kind::fork});
    std::vector<std::size_t> ends;
    do {
      parts_[fork].ways.push_back(parts_.size());
      while (!rest_.empty() && rest_.front() != ',' && rest_.front() != '}') {
        read_part();
      }
      ends.push_back(add({.kind = Kind::fork}));
    } while (take(","));
    require_more('{', '}');
    take("}");
    lead_here(ends);
  }

  void lead_here(const std::vector<std::size_t>& forks) {
    for (const std::size_t fork : forks) {
      parts_[fork].ways = {parts_.size()};
    }
  }

  /// A character, or the one behind a backslash.
  char32_t read_character() {
    if (rest_.size() > 1) {
      take("\\");
    }
    return take_character(rest_);
  }

  bool take(std::string_view word) {
    if (!rest_.starts_with(word)) {
      return false;
    }
    rest_.remove_prefix(word.size());
    return true;
  }

  std::size_t add(Glob::Part part) {
    parts_.push_back(std::move(part));
    return parts_.size() - 1;
  }

  void require_more(char opening, char closing) const {
    if (rest_.empty()) {
      refuse(std::string("has a '") + opening + "' without its '" + closing + "': write '\\" + opening +
             "' for the character itself");
    }
  }

  [[noreturn]] void refuse(std::string_view words) const {
    throw tb::ArgumentError("the pattern " + tb::quoted_form(whole_) + " " + std::string(words));
  }

  std::vector<Glob::Part>& parts_;
  std::string_view whole_;
  std::string_view rest_;
};

namespace {

void require_few(std::span<const std::string> patterns) {
  std::size_t bytes = 0;
  for (const std::string& pattern : patterns) {
    bytes += pattern.size();
  }
  if (bytes > Glob::most_bytes || patterns.size() > Glob::most_patterns) {
    throw tb::ArgumentError("there must not be more than " + std::to_string(Glob::most_patterns) +
                            " patterns, nor more than " + std::to_string(Glob::most_bytes) + " bytes of them together");
  }
}

}  // namespace

Glob::Glob(std::span<const std::string> patterns) {
  require_few(patterns);
  const std::string any[] = {"**"};
  GlobParser(parts_).read_all(patterns.empty() ? std::span<const std::string>(any) : patterns);
}

Glob::Places Glob::start() const {
  Places places;
  enter(places, 0);
  return places;
}

Glob::Places Glob::after(Places places, std::string_view text) const {
  while (!text.empty() && places.any()) {
    const char32_t character = take_character(text);
    Places next;
    for (std::size_t place = 0; place < parts_.size(); ++place) {
      if (places[place]) {
        follow(next, place, character);
      }
    }
    places = next;
  }
  return places;
}

/// Marks a place, and those that are reached from it without a character.
void Glob::enter(Places& places, std::size_t place) const {
  if (places[place]) {
    return;
  }
  places.set(place);
  if (place == parts_.size()) {
    return;
  }
  const Part& part = parts_[place];
  if (part.kind == Kind::within_a_name || part.kind == Kind::anything) {
    enter(places, place + 1);
  }
  for (const std::size_t way : part.ways) {
    enter(places, way);
  }
}

/// Marks the places that a character leads to from one.
void Glob::follow(Places& next, std::size_t place, char32_t character) const {
  const Part& part = parts_[place];
  const bool separates = character == U'/';
  switch (part.kind) {
    case Kind::anything:
      enter(next, place);
      break;
    case Kind::within_a_name:
      if (!separates) {
        enter(next, place);
      }
      break;
    case Kind::directory:
      enter(next, separates ? place - 1 : place);
      break;
    case Kind::one_of: {
      const bool is_listed = std::any_of(part.characters.begin(), part.characters.end(), [&](const Range& range) {
        return range.first <= character && character <= range.last;
      });
      if (is_listed != part.is_negated && !(part.is_negated && separates)) {
        enter(next, place + 1);
      }
      break;
    }
    case Kind::fork:
      break;
  }
}

}  // namespace repo_daemon
