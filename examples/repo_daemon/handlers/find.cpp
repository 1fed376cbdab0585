// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cctype>
#include <cstring>
#include <deque>
#include <optional>
#include <vector>

#include "handlers/chosen_files.hpp"
#include "handlers/search_actions.hpp"
#include "text.hpp"

namespace repo_daemon {

namespace {

bool is_part_of_word(char byte) {
  const auto number = static_cast<unsigned char>(byte);
  return std::isalnum(number) != 0 || byte == '_' || number >= 0x80;
}

std::string in_lower_case(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; });
  return lower;
}

/// For each beginning of a text the length of the longest shorter one that it ends with.
std::vector<std::size_t> borders_of(std::string_view text) {
  std::vector<std::size_t> borders(text.size());
  std::size_t matched = 0;
  for (std::size_t place = 1; place < text.size(); ++place) {
    while (matched > 0 && text[place] != text[matched]) {
      matched = borders[matched - 1];
    }
    if (text[place] == text[matched]) {
      ++matched;
    }
    borders[place] = matched;
  }
  return borders;
}

/// What is looked for. A regular expression would let one request take any time; this is linear.
class Query {
 public:
  explicit Query(const Keywords& keywords)
      : ignores_case_(keywords.flag("ignore_case")),
        whole_word_(keywords.value("match").is("word")),
        text_(ignores_case_ ? in_lower_case(keywords.required_text("query")) : keywords.required_text("query")),
        borders_(whole_word_ ? borders_of(text_) : std::vector<std::size_t>()) {}

  [[nodiscard]] bool is_in(std::string_view line) const {
    return ignores_case_ ? stands_in(in_lower_case(line)) : stands_in(line);
  }

 private:
  [[nodiscard]] bool stands_in(std::string_view line) const {
    const auto* const found = static_cast<const char*>(memmem(line.data(), line.size(), text_.data(), text_.size()));
    return found != nullptr && (!whole_word_ || is_word_from(line, static_cast<std::size_t>(found - line.data())));
  }

  /// Whether the text stands as a word at `begin` or behind it. Occurrences may overlap: the scan never steps back in
  /// the line, but goes on with the part of the text that ends where the line has been read to (Knuth, Morris, Pratt).
  [[nodiscard]] bool is_word_from(std::string_view line, std::size_t begin) const {
    std::size_t matched = 0;
    for (std::size_t place = begin; place < line.size(); ++place) {
      while (matched > 0 && (matched == text_.size() || line[place] != text_[matched])) {
        matched = borders_[matched - 1];
      }
      if (line[place] == text_[matched]) {
        ++matched;
      }
      if (matched == text_.size() && is_edge(line, place + 1 - matched) && is_edge(line, place + 1)) {
        return true;
      }
    }
    return false;
  }

  /// Whether no word goes on from the byte before `place` to the one at it.
  [[nodiscard]] static bool is_edge(std::string_view line, std::size_t place) {
    return place == 0 || place >= line.size() || !is_part_of_word(line[place - 1]) || !is_part_of_word(line[place]);
  }

  bool ignores_case_;
  bool whole_word_;
  std::string text_;
  std::vector<std::size_t> borders_;
};

/// Collects what was found in one file after another.
class Finding {
 public:
  explicit Finding(const Keywords& keywords)
      : query_(keywords), limit_(keywords.required_count("limit")), around_(keywords.required_count("context_lines")) {}

  void look_through(const SourceFile& file, std::string_view text) {
    const std::string path = shown_name(file.path);
    const std::size_t found_before = found_;
    std::deque<std::string_view> before;  // lines that are shown if one is found soon
    std::size_t to_show = 0;              // lines that are shown because one was found
    Lines lines(text);
    for (std::size_t number = 1; const std::optional<std::string_view> line = lines.next(); ++number) {
      const bool is_found = query_.is_in(*line);
      if (is_found && ++found_ <= limit_) {
        show_before(path, number, before);
        to_show = around_ + 1;
      }
      if (to_show > 0) {
        show(path, number, is_found ? ":" : "-", *line);
        --to_show;
      } else if (before.push_back(*line); before.size() > around_) {
        before.pop_front();
      }
    }
    files_ += found_ > found_before ? 1 : 0;
  }

  [[nodiscard]] std::string report(const Reading& reading, const Listing& listing) && {
    return std::move(report_).text(counted(found_, "line") + " in " + counted(files_, "file") + " of " +
                                   std::to_string(reading.files) +
                                   (found_ > limit_ ? ", the first " + std::to_string(limit_) + " shown" : "") +
                                   listing.left_out.words() + reading.remarks());
  }

 private:
  void show_before(const std::string& path, std::size_t found, std::deque<std::string_view>& before) {
    for (; !before.empty(); before.pop_front()) {
      show(path, found - before.size(), "-", before.front());
    }
  }

  void show(const std::string& path, std::size_t number, const char* mark, std::string_view line) {
    report_.add(path + mark + std::to_string(number) + mark + " " + shown_line(line));
  }

  Query query_;
  std::size_t limit_;
  std::size_t around_;
  std::size_t found_ = 0;
  std::size_t files_ = 0;
  Report report_;
};

}  // namespace

std::string find_text(const Keywords& keywords, const Repository& repository) {
  Finding finding(keywords);
  const Deadline deadline = keywords.deadline(repository.limits());
  const Listing listing = repository.files_below(keywords.text_or("path", ""), chosen_by(keywords), deadline);
  const auto look = [&](const SourceFile& file, std::string_view text) { finding.look_through(file, text); };
  const Reading reading = read_each(repository, listing.files, deadline, look);
  return std::move(finding).report(reading, listing);
}

}  // namespace repo_daemon
