// SPDX-License-Identifier: MIT
#include "answer_questions.hpp"

#include <memory>
#include <optional>
#include <string>

#include "answer.hpp"
#include "answer_lines.hpp"
#include "loading.hpp"
#include "tool_binding/json/reader.hpp"

namespace tool_binding::cli {

namespace {

void append_reply(json::Writer& out, const Text& tool, const Text& name, const Value& value) {
  ObjectWriter answer(out);
  answer.add("tool", tool);
  answer.add(name, value);
  answer.end();
}

}  // namespace

ExitStatus answer_questions(const Files& files, const Text& name, const Reply& reply) {
  static_cast<void>(load_registry(files.registry));
  return answer_lines(files, [&] {
    return [&, reader = std::make_shared<json::Reader>()](const Line& line, json::Writer& out) {
      std::optional<Text> tool;
      try {
        const Value request = read_line(*reader, line.text);
        const ArgumentMap& members = members_of(request);
        tool = required_text(members, "tool");
        append_reply(out, *tool, name, reply(*tool, members));
        return Outcome::answered;
      } catch (const Error& error) {
        append_refusal(out, {}, tool, refusal_of(error, line.number));
      } catch (const std::overflow_error& error) {
        append_refusal(out, {}, tool, refusal_of(error));
      }
      return Outcome::refused;
    };
  });
}

}  // namespace tool_binding::cli
