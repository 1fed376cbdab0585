// SPDX-License-Identifier: MIT
#include "answer.hpp"

namespace tool_binding::cli {

namespace {

/// JSON-RPC's own kind of error, for a line that is not a request.
void append_json_rpc_error(json::Writer& out, const Envelope& envelope, const Refusal& refusal) {
  ObjectWriter error = begin_answer(out, envelope, "error");
  error.add("code", static_cast<int>(refusal.code));
  error.add("message", refusal.message);
  end_answer(out, envelope);
}

}  // namespace

ObjectWriter begin_answer(json::Writer& out, const Envelope& envelope, const Text& json_rpc_member) {
  ObjectWriter answer(out);
  if (envelope.shape == Shape::plain) {
    if (envelope.id) {
      answer.add("id", *envelope.id);
    }
    return answer;
  }
  answer.add("jsonrpc", "2.0");
  answer.add("id", envelope.id.value_or(Value()));
  answer.begin(json_rpc_member);
  return ObjectWriter(out);
}

void end_answer(json::Writer& out, const Envelope& envelope) {
  out.close_object();
  if (envelope.shape == Shape::json_rpc) {
    out.close_object();
  }
}

void append_refusal(json::Writer& out, const Envelope& envelope, const std::optional<Text>& tool,
                    const Refusal& refusal) {
  if (envelope.shape == Shape::json_rpc && refusal.code != Refusal::Code::none) {
    return append_json_rpc_error(out, envelope, refusal);
  }
  ObjectWriter answer = begin_answer(out, envelope, "result");
  if (tool && refusal.code == Refusal::Code::none) {
    answer.add("tool", *tool);
  }
  answer.add("error", refusal.error);
  answer.add("message", refusal.message);
  if (refusal.with_findings) {
    answer.add("findings", Value(std::vector<Value>()));
  }
  end_answer(out, envelope);
}

}  // namespace tool_binding::cli
