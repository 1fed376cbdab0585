// SPDX-License-Identifier: MIT
#include "answer_lines.hpp"

#include "in_order.hpp"
#include "output.hpp"

namespace tool_binding::cli {

namespace {

/// As much as is gathered before it is written.
constexpr std::size_t large_output = std::size_t{1024} * 1024;

/// The answers to the lines of a block.
struct Answers {
  json::Writer text;
  Outcome outcome = Outcome::answered;
};

}  // namespace

ExitStatus answer_lines(const Files& files, const std::function<Answerer()>& make_answerer) {
  ExitStatus status = ExitStatus::answered;
  InOrder<Answers> blocks(InputBlocks({files.lines}), [&](Answers& answers) {
    status = answers.outcome == Outcome::refused ? ExitStatus::refused : status;
    const bool is_read = print(answers.text.text());
    answers.text.clear();
    answers.outcome = Outcome::answered;
    return is_read;
  });
  blocks.run(files.jobs, [&] {
    return [answer = make_answerer()](const Block& block, Answers& answers, const auto& flush) {
      block.each_line([&](const Line& line) {
        if (answers.text.text().size() >= large_output) {
          flush();
        }
        if (answer(line, answers.text) == Outcome::refused) {
          answers.outcome = Outcome::refused;
        }
        answers.text.end_line();
      });
    };
  });
  return status;
}

}  // namespace tool_binding::cli
