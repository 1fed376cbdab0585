// SPDX-License-Identifier: MIT
#include "tool_binding/server/server.hpp"

#include <utility>

#include "conversation.hpp"
#include "core.hpp"
#include "workers.hpp"

namespace tool_binding::server {

Server::Server(ServerInfo info, const std::vector<ServedTool>& tools, Options options)
    : core_(std::make_shared<const detail::Core>(std::move(info), tools, std::move(options))) {}

Session::Session(const Server& server, Send send)
    : conversation_(std::make_shared<detail::Conversation>(server.core_, std::move(send),
                                                           std::make_shared<detail::InlineRunner>())) {}

std::vector<std::string> Session::answer(std::string_view message) {
  std::vector<std::string> answers;
  conversation_->receive(message, [&](const std::string& text) { answers.push_back(text); });
  return answers;
}

void Session::end() {
  conversation_->end_subscriptions();
  conversation_->cancel_calls();
}

}  // namespace tool_binding::server
