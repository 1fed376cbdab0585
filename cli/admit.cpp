// SPDX-License-Identifier: MIT
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "answer.hpp"
#include "answer_lines.hpp"
#include "command.hpp"
#include "loading.hpp"
#include "options.hpp"
#include "tool_binding/json/findings.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding::cli {

namespace {

struct AdmitOptions {
  Files files;
  bool with_findings = false;
};

/// What answers need beside their requests, for all threads.
struct Surroundings {
  explicit Surroundings(const AdmitOptions& options)
      : handlers(load_registry(options.files.registry)),
        context(load_context(options.files.context)),
        with_findings(options.with_findings) {}

  Handlers handlers;
  KeywordArguments context;
  bool with_findings;
};

/// Answers requests, each with the keywords that its handler would be called with. For one thread.
class RequestAnswerer {
 public:
  explicit RequestAnswerer(const Surroundings& surroundings) : surroundings_(surroundings) {}

  Outcome answer(const Line& line, json::Writer& out) {
    Envelope envelope;
    std::optional<Text> tool;
    try {
      const Value request = read_line(reader_, line.text);
      envelope = envelope_of(request);
      const Call call = read_call(request, envelope.shape);
      tool = call.tool;
      return append_answer(out, envelope, call);
    } catch (const Error& error) {
      const Refusal refusal = refusal_of(error, line.number);
      if (refusal.code == Refusal::Code::parse_error) {
        envelope = envelope_of_ill_formed(line.text);
      }
      append_failure(out, envelope, tool, refusal);
    } catch (const std::overflow_error& error) {
      append_failure(out, envelope, tool, refusal_of(error));
    }
    return Outcome::refused;
  }

 private:
  /// The walk of one call. What fails, fails before the first byte of the answer; what is written is moved on.
  Outcome append_answer(json::Writer& out, const Envelope& envelope, const Call& call) {
    const ToolSpec& tool = TOOLS[call.tool];
    Admission admission = tool_binding::admit(tool, call.arguments.mapping());
    ObjectWriter answer = begin_answer(out, envelope, "result");
    answer.add("tool", call.tool);
    if (!admission.is_admitted()) {
      answer.add("error", "ArgumentError");
      answer.add("message", admission.refusal());
      append_findings(answer, admission);
      end_answer(out, envelope);
      return Outcome::refused;
    }
    answer.add("arguments", admission.arguments());
    answer.add("notes", admission.notes());
    answer.add("alias_hit", admission.alias_hit());
    answer.add_bound(bind_arguments(tool, std::move(admission).arguments()), *surroundings_.handlers.find(call.tool),
                     surroundings_.context);
    append_findings(answer, admission);  // NOLINT(bugprone-use-after-move): its arguments alone were moved
    end_answer(out, envelope);
    return Outcome::answered;
  }

  /// The answer to a line that no tool's admission came to answer: nothing was found of its arguments.
  void append_failure(json::Writer& out, const Envelope& envelope, const std::optional<Text>& tool,
                      Refusal refusal) const {
    refusal.with_findings = surroundings_.with_findings;
    append_refusal(out, envelope, tool, refusal);
  }

  void append_findings(ObjectWriter& answer, const Admission& admission) const {
    if (surroundings_.with_findings) {
      answer.add("findings", json::findings_value(admission.findings()));
    }
  }

  const Surroundings& surroundings_;
  json::Reader reader_;
};

ExitStatus answer_requests(const AdmitOptions& options) {
  const Surroundings surroundings(options);
  return answer_lines(options.files, [&] {
    const auto answerer = std::make_shared<RequestAnswerer>(surroundings);
    return [answerer](const Line& line, json::Writer& out) { return answerer->answer(line, out); };
  });
}

}  // namespace

Run declare_admit(CLI::App& command) {
  const auto request = std::make_shared<AdmitOptions>();
  add_registry_option(command, request->files);
  add_context_option(command, request->files);
  add_flag(command, "--findings", request->with_findings, "Add each note and problem as data for programs");
  add_lines_argument(command, request->files, "REQUESTS");
  return [request] { return answer_requests(*request); };
}

}  // namespace tool_binding::cli
