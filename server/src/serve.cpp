// SPDX-License-Identifier: MIT
#include <memory>
#include <utility>

#include "conversation.hpp"
#include "core.hpp"
#include "input_lines.hpp"
#include "output.hpp"
#include "tool_binding/server/server.hpp"
#include "workers.hpp"

namespace tool_binding::server {

namespace {

using namespace detail;

void read_all(Conversation& conversation, InputLines& lines, const Output& output, const Sink& sink) {
  while (output.is_open()) {
    switch (lines.next()) {
      case InputLines::Kind::none:
        return;
      case InputLines::Kind::too_long:
        conversation.refuse_long_message(sink);
        break;
      case InputLines::Kind::whole:
        conversation.receive(lines.line(), sink);
    }
  }
}

/// What still runs is finished, or else cancelled; returns the number of calls that do not end.
std::size_t finish(Conversation& conversation, Workers& workers, Output& output) {
  const Limits& limits = conversation.core().limits();
  conversation.end_subscriptions();
  if (!output.is_open() || !workers.wait(limits.finishing)) {
    conversation.cancel_calls();
    workers.wait(limits.stopping);
  }
  output.close();
  return workers.stop();
}

}  // namespace

std::size_t Server::serve(int in, int out) const {
  const auto output = std::make_shared<Output>(out);
  const Sink sink = [output](const std::string& message) { output->write(message); };
  const auto workers = std::make_shared<Workers>();
  const std::shared_ptr<Runner> runner =
      core_->workers() == 0 ? std::make_shared<InlineRunner>() : std::shared_ptr<Runner>(workers);
  const auto conversation = std::make_shared<Conversation>(core_, sink, runner);
  workers->start(core_->workers());
  InputLines lines(in, core_->limits().message_bytes);
  try {
    read_all(*conversation, lines, *output, sink);
  } catch (...) {
    finish(*conversation, *workers, *output);
    throw;
  }
  return finish(*conversation, *workers, *output);
}

}  // namespace tool_binding::server
