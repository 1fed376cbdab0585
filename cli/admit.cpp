// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "answer.hpp"
#include "answer_lines.hpp"
#include "command.hpp"
#include "loading.hpp"
#include "options.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding::cli {

namespace {

/// Answers requests, each with the keywords that its handler would be called with.
class Admission {
 public:
  explicit Admission(const Files& files)
      : handlers_(load_registry(files.registry)), context_(load_context(files.context)) {}

  Outcome answer(const Line& line, json::Writer& out) {
    Envelope envelope;
    std::optional<Text> tool;
    try {
      const Value request = read_line(reader_, line.text);
      envelope = envelope_of(request);
      const Call call = read_call(request, envelope.shape);
      tool = call.tool;
      append_result(out, envelope, call);
      return Outcome::answered;
    } catch (const Error& error) {
      const Refusal refusal = refusal_of(error, line.number);
      if (refusal.code == Refusal::Code::parse_error) {
        envelope = envelope_of_ill_formed(line.text);
      }
      append_refusal(out, envelope, tool, refusal);
    } catch (const std::overflow_error& error) {
      append_refusal(out, envelope, tool, refusal_of(error));
    }
    return Outcome::refused;
  }

 private:
  /// The walk of one call. What may refuse it stands before the first byte of the answer; what is written is moved on.
  void append_result(json::Writer& out, const Envelope& envelope, const Call& call) {
    const ToolSpec& tool = TOOLS[call.tool];
    NormalizedArguments admitted = normalize_arguments(tool, call.arguments.mapping());

    ObjectWriter answer = begin_answer(out, envelope, "result");
    answer.add("tool", call.tool);
    answer.add("arguments", admitted.arguments());
    answer.add("notes", admitted.notes());
    answer.add("alias_hit", admitted.alias_hit());
    answer.add_bound(bind_arguments(tool, std::move(admitted).arguments()), *handlers_.find(call.tool), context_);
    end_answer(out, envelope);
  }

  Handlers handlers_;
  KeywordArguments context_;
  json::Reader reader_;
};

ExitStatus admit(const Files& files) {
  Admission admission(files);
  return answer_lines(files.lines, [&](const Line& line, json::Writer& out) { return admission.answer(line, out); });
}

}  // namespace

Run declare_admit(CLI::App& command) {
  const auto files = std::make_shared<Files>();
  add_registry_option(command, *files);
  add_context_option(command, *files);
  add_lines_argument(command, *files, "REQUESTS");
  return [files] { return admit(*files); };
}

}  // namespace tool_binding::cli
