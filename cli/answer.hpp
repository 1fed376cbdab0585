// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "object_writer.hpp"
#include "refusal.hpp"
#include "request.hpp"

/// Answers in the form that their lines ask for: a plain line, with the id first, or JSON-RPC's object around it.
namespace tool_binding::cli {

/// Begins an answer; its members are added to what comes back. In JSON-RPC they are members of `json_rpc_member`.
[[nodiscard]] ObjectWriter begin_answer(json::Writer& out, const Envelope& envelope, const Text& json_rpc_member);
void end_answer(json::Writer& out, const Envelope& envelope);

/// The answer to a line that got no result. It names `tool`, as far as that is known, unless the line is not a request.
void append_refusal(json::Writer& out, const Envelope& envelope, const std::optional<Text>& tool,
                    const Refusal& refusal);

}  // namespace tool_binding::cli
