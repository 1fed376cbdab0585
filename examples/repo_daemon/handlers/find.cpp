// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cctype>
#include <cstring>

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

/// What is looked for. A regular expression would let one request take any time; this is linear.
class Query {
 public:
  explicit Query(const Keywords& keywords)
      : ignores_case_(keywords.flag("ignore_case")),
        whole_word_(keywords.value("match").is("word")),
        text_(ignores_case_ ? in_lower_case(keywords.required_text("query")) : keywords.required_text("query")) {}

  [[nodiscard]] bool is_in(std::string_view line) const {
    return ignores_case_ ? stands_in(in_lower_case(line)) : stands_in(line);
  }

 private:
  [[nodiscard]] bool stands_in(std::string_view line) const {
    std::size_t from = 0;
    while (const char* const found = found_in(line.substr(from))) {
      const auto begin = static_cast<std::size_t>(found - line.data());
      if (!whole_word_ || (is_edge(line, begin) && is_edge(line, begin + text_.size()))) {
        return true;
      }
      from = begin + 1;
      while (!is_edge(line, from)) {
        ++from;
      }
    }
    return false;
  }

  [[nodiscard]] const char* found_in(std::string_view line) const {
    return static_cast<const char*>(memmem(line.data(), line.size(), text_.data(), text_.size()));
  }

  /// Whether no word goes on from the byte before `place` to the one at it.
  [[nodiscard]] static bool is_edge(std::string_view line, std::size_t place) {
    return place == 0 || place >= line.size() || !is_part_of_word(line[place - 1]) || !is_part_of_word(line[place]);
  }

  bool ignores_case_;
  bool whole_word_;
  std::string text_;
};

/// Collects what was found in one file after another.
class Finding {
 public:
  explicit Finding(const Keywords& keywords)
      : query_(keywords), limit_(keywords.required_count("limit")), around_(keywords.required_count("context_lines")) {}

  void look_through(const SourceFile& file, std::string_view text) {
    const std::vector<std::string_view> lines = lines_of(text);
    const std::size_t found_before = found_;
    std::size_t next_to_show = 0;
    for (std::size_t place = 0; place < lines.size(); ++place) {
      if (query_.is_in(lines[place]) && ++found_ <= limit_) {
        show(file, lines, place, next_to_show);
      }
    }
    files_ += found_ > found_before ? 1 : 0;
  }

  [[nodiscard]] std::string report(const Reading& reading, const std::string& completeness) && {
    return std::move(report_).text(
        counted(found_, "line") + " in " + counted(files_, "file") + " of " + std::to_string(reading.files) +
        (found_ > limit_ ? ", the first " + std::to_string(limit_) + " shown" : "") + completeness + reading.remarks());
  }

 private:
  /// Shows a line found and those around it, except for those that are shown already.
  void show(const SourceFile& file, const std::vector<std::string_view>& lines, std::size_t found,
            std::size_t& next_to_show) {
    const std::size_t begin = std::max(next_to_show, found - std::min(found, around_));
    const std::size_t end = std::min(lines.size(), found + around_ + 1);
    for (std::size_t place = begin; place < end; ++place) {
      const char* const mark = query_.is_in(lines[place]) ? ":" : "-";
      report_.add(file.path + mark + std::to_string(place + 1) + mark + " " + shown(lines[place]));
    }
    next_to_show = std::max(next_to_show, end);
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
  const Listing listing = chosen_files(repository, keywords.text_or("path", ""), keywords.texts("patterns"));
  const Reading reading = read_each(repository, listing.files, [&](const SourceFile& file, std::string_view text) {
    finding.look_through(file, text);
  });
  return std::move(finding).report(reading, completeness_of(listing));
}

}  // namespace repo_daemon
