// SPDX-License-Identifier: MIT
#include "tool_call.hpp"

#include <exception>
#include <optional>
#include <utility>

#include "tool_binding/call.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/json/findings.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_list.hpp"
#include "wire.hpp"

namespace tool_binding::server::detail {

namespace {

constexpr std::size_t most_finding_bytes = 16UL * 1024;

/// What comes of a call, before a version's words are found for it.
struct Outcome {
  Answer answer;
  std::vector<std::string> notes = {};
  std::vector<Value> findings = {};
};

/// The findings as data, as many as `most_bytes` hold. One that repeats a long argument keeps its kind and words.
std::vector<Value> bounded(std::span<const Finding> findings, std::size_t most_bytes) {
  std::vector<Value> values;
  for (const Finding& finding : findings) {
    Value value = json::finding_value(finding);
    std::size_t bytes = json::write(value).size();
    if (bytes > most_finding_bytes) {
      const std::string words = shortened(value.mapping().find("message")->text(), 1024);
      bytes = words.size() + 100;
      value = ArgumentMap{{"kind", word_of(finding.kind)}, {"message", words}};
    }
    if (bytes > most_bytes) {
      break;
    }
    most_bytes -= bytes;
    values.push_back(std::move(value));
  }
  return values;
}

std::vector<std::string> bounded(std::vector<std::string> notes, std::size_t most_bytes) {
  for (std::size_t place = 0; place < notes.size(); ++place) {
    if (notes[place].size() > most_bytes) {
      const std::size_t left_out = notes.size() - place;
      notes.resize(place);
      notes.push_back(std::to_string(left_out) + " more changes are left out here");
      break;
    }
    most_bytes -= notes[place].size();
  }
  return notes;
}

Answer refusal(std::string_view words, const Limits& limits) {
  return Answer::error(shortened(words, limits.refusal_bytes));
}

Outcome prepared_call(const Core& core, const Tool& tool, const ArgumentMap& arguments, Call& call) {
  PreparedCall prepared = prepare_call(*tool.spec, tool.shape, arguments, core.context());
  Outcome outcome = {.answer = std::vector<Content>()};
  if (!prepared.findings().empty()) {
    outcome.findings = bounded(prepared.findings(), core.limits().refusal_bytes);
  }
  if (!prepared.is_admitted()) {
    outcome.answer = refusal(prepared.refusal(), core.limits());
    return outcome;
  }
  if (!prepared.findings().empty()) {
    outcome.notes = bounded(prepared.notes(), core.limits().refusal_bytes);
  }
  try {
    KeywordArguments keywords = std::move(prepared).keywords();
    for (const Text& name : tool.call_names) {
      keywords.set(name, KeywordArgument::context(call));
    }
    outcome.answer = tool.function(keywords);
  } catch (const ArgumentError& error) {
    outcome.answer = refusal(error.message(), core.limits());
    std::vector<Value> found = bounded(error.findings(), core.limits().refusal_bytes);
    outcome.findings.insert(outcome.findings.end(), found.begin(), found.end());
  }
  return outcome;
}

Outcome outcome_of(const Core& core, const Tool& tool, const ArgumentMap& arguments, Call& call) {
  const std::string name(tool.spec->name());
  try {
    return prepared_call(core, tool, arguments, call);
  } catch (const std::exception& failure) {
    return {.answer = refusal(name + " failed: " + failure.what(), core.limits())};
  } catch (...) {
    return {.answer = refusal(name + " failed", core.limits())};
  }
}

bool knows(const Version& version, Content::Kind kind) noexcept {
  return (kind != Content::Kind::audio || version.has_audio) && (kind != Content::Kind::link || version.has_links);
}

void write_content(json::Writer& writer, const Outcome& outcome, const Version& version) {
  writer.write_name("content");
  writer.open_list();
  for (const Content& content : outcome.answer.content()) {
    writer.write(knows(version, content.kind()) ? content.block() : Content::text(content.words()).block());
  }
  if (outcome.answer.structured_value() && outcome.answer.content().empty()) {
    writer.write(Content::text(sendable(*outcome.answer.structured_value())).block());
  }
  for (const std::string& note : outcome.notes) {
    writer.write(Content::text("note: " + note).block());
  }
  writer.close_list();
}

/// Whether a structured value stands in a result of that version.
bool is_sent(const std::optional<Value>& value, const Version& version) {
  return value && (version.has_any_structured || (version.has_structured && value->is_mapping()));
}

void write_meta(json::Writer& writer, const Core& core, const Outcome& outcome, const Version& version) {
  ArgumentMap meta;
  if (version.is_modern) {
    meta.append("io.modelcontextprotocol/serverInfo", core.server_info(version));
  }
  if (!outcome.findings.empty()) {
    meta.append("tool-binding/findings", outcome.findings);
  }
  if (!meta.empty()) {
    writer.write_name("_meta");
    writer.write(meta);
  }
}

std::string result_text(const Core& core, const Outcome& outcome, const Version& version) {
  json::Writer writer;
  writer.open_object();
  write_content(writer, outcome, version);
  if (is_sent(outcome.answer.structured_value(), version)) {
    writer.write_name("structuredContent");
    writer.write(*outcome.answer.structured_value());
  }
  writer.write_name("isError");
  writer.write(outcome.answer.is_error());
  if (version.is_modern) {
    writer.write_name("resultType");
    writer.write("complete");
  }
  write_meta(writer, core, outcome, version);
  writer.close_object();
  std::string text(writer.text());
  make_sendable(text);
  return text;
}

/// What is wrong with an answer that cannot be sent, empty for any other.
std::string_view fault_of(const Tool& tool, const Answer& answer, const Version& version) {
  const std::optional<Value>& value = answer.structured_value();
  if (has_output_schema(tool.served, version) && !answer.is_error() && !is_sent(value, version)) {
    return "it has an output schema, and answered without a structured value";
  }
  const bool is_spelled = !value || place_of_bare_word(json::write(*value)) == std::string_view::npos;
  return is_spelled ? "" : "its answer has a number that JSON cannot spell";
}

}  // namespace

std::string call_result(const Core& core, const Tool& tool, const ArgumentMap& arguments, const Version& version,
                        Call& call) {
  Outcome outcome = outcome_of(core, tool, arguments, call);
  if (const std::string_view fault = fault_of(tool, outcome.answer, version); !fault.empty()) {
    outcome.answer = Answer::error(std::string(tool.spec->name()).append(" failed: ").append(fault));
  }
  return result_text(core, outcome, version);
}

std::string refused_call(const Core& core, const Text& words, const Version& version) {
  return result_text(core, {.answer = Answer::error(words)}, version);
}

}  // namespace tool_binding::server::detail
