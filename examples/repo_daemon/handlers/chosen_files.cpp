// SPDX-License-Identifier: MIT
#include "handlers/chosen_files.hpp"

#include <algorithm>

#include "text.hpp"
#include "tool_binding/errors.hpp"

namespace repo_daemon {

namespace {

/// How many braces a piece of a pattern opens and does not close; negative when it closes more than it opens.
int open_braces(std::string_view piece) {
  int open = 0;
  bool is_literal = false;
  for (const char byte : piece) {
    open += is_literal ? 0 : byte == '{' ? 1 : byte == '}' ? -1 : 0;
    is_literal = byte == '\\' && !is_literal;
  }
  return open;
}

/// A text is split at its commas into a list, those between braces included: the pieces of "*.{hpp,cpp}" are put back
/// together, where a later one closes what an earlier one opens. What is too much for a glob is left for it to refuse.
std::vector<std::string> rejoined(const std::vector<std::string>& pieces) {
  if (pieces.size() > Glob::most_patterns) {
    return pieces;
  }
  std::vector<std::string> patterns;
  for (std::size_t place = 0; place < pieces.size(); ++place) {
    std::string pattern = pieces[place];
    int open = open_braces(pattern);
    std::size_t last = place;
    while (open > 0 && last + 1 < pieces.size() && pattern.size() <= Glob::most_bytes) {
      pattern += "," + pieces[++last];
      open += open_braces(pieces[last]);
    }
    const bool is_closed = open == 0 && last != place;
    patterns.push_back(is_closed ? pattern : pieces[place]);
    place = is_closed ? last : place;
  }
  return patterns;
}

}  // namespace

Glob chosen_by(const Keywords& keywords) { return Glob(rejoined(keywords.texts("patterns"))); }

std::string Reading::remarks() const {
  std::string words;
  if (no_text != 0) {
    words += ", " + counted(no_text, "file") + " passed over: no text, too large or not readable";
  }
  if (not_tried != 0) {
    words +=
        ", " + counted(not_tried, "file") + " not read, stopped at " + stopped_at + ": narrow the path or the patterns";
  }
  return words;
}

Reading read_each(const Repository& repository, const std::vector<SourceFile>& files, const Deadline& deadline,
                  const std::function<void(const SourceFile& file, std::string_view text)>& use) {
  const Limits& limits = repository.limits();
  Reading reading;
  std::size_t bytes = 0;
  for (std::size_t place = 0; place < files.size(); ++place) {
    if (bytes > limits.read_bytes || deadline.has_passed()) {
      reading.not_tried = files.size() - place;
      reading.stopped_at = bytes > limits.read_bytes ? counted(limits.read_bytes, "byte") : in_seconds(limits.time);
      break;
    }
    bytes += std::min(static_cast<std::size_t>(files[place].bytes), limits.file_bytes);
    try {
      const std::string text = repository.text_of(files[place].path, deadline);
      ++reading.files;
      use(files[place], text);
    } catch (const tool_binding::ArgumentError&) {
      ++reading.no_text;
    }
  }
  return reading;
}

}  // namespace repo_daemon
