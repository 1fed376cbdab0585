// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <map>
#include <string>

#include "tool_binding/server/server.hpp"

using namespace tool_binding;

int main() {
  std::map<std::string, std::string> notes;
  const auto write = [&](const std::string& title, const std::string& text) {
    return notes.insert_or_assign(title, text).second ? "written" : "written over an older one";
  };
  const auto read = [&](const std::string& title) {
    return notes.contains(title) ? notes.at(title) : throw ArgumentError("no note is titled '" + title + "'");
  };
  const auto find = [&](const std::string& text, int limit, server::Call& call) {
    std::string titles;
    int found = 0;
    for (auto note = notes.begin(); note != notes.end() && found < limit && !call.is_cancelled(); ++note) {
      if (note->second.find(text) != std::string::npos) {
        titles += note->first + "\n";
        call.progress(++found);
      }
    }
    return titles.empty() ? "no note has that text" : titles;
  };
  const ParamSpec title = {.name = "title", .type = "string", .synonyms = {"name"}, .required = true};
  const ParamSpec text = {.name = "text", .type = "string", .synonyms = {"content", "query"}, .required = true};
  const ParamSpec limit = {.name = "limit", .type = "integer", .minimum = 1, .maximum = 100, .default_ = 10};
  const server::Server server(
      {.name = "notes", .version = "1.0", .instructions = "Notes that are kept while the server runs."},
      {{.tool = {.name = "write_note", .description = "Writes a note under a title.", .params = {title, text}},
        .handler = handler(write, argument<std::string>("title"), argument<std::string>("text"))},
       {.tool = {.name = "read_note", .description = "Shows the note of that title.", .params = {title}},
        .handler = handler(read, argument<std::string>("title")),
        .annotations = {.read_only = true}},
       {.tool = {.name = "find_notes", .description = "Lists notes with a text.", .params = {text, limit}},
        .handler = handler(find, argument<std::string>("text"), argument<int>("limit"), item<server::Call>("call")),
        .annotations = {.read_only = true}}});
  std::_Exit(server.serve() == 0 ? 0 : 1);  // a call that does not end still uses the notes: they are not destroyed
}
