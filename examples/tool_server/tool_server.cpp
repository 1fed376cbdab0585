// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <map>
#include <string>

#include "tool_binding/server/server.hpp"

using namespace tool_binding;
using Notes = std::map<std::string, std::string, std::less<>>;

std::string write_note(const std::string& title, const std::string& text, Notes& notes) {
  return notes.insert_or_assign(title, text).second ? "written" : "written over an older one";
}

std::string read_note(const std::string& title, const Notes& notes) {
  const auto found = notes.find(title);
  return found != notes.end() ? found->second : throw ArgumentError("no note is titled '" + title + "'");
}

std::string find_notes(const std::string& text, int limit, const Notes& notes, server::Call& call) {
  std::string titles;
  double seen = 0;
  for (auto note = notes.begin(); note != notes.end() && limit > 0 && !call.is_cancelled(); ++note) {
    call.progress(++seen, static_cast<double>(notes.size()));
    if (note->second.find(text) != std::string::npos) {
      titles += note->first + "\n";
      --limit;
    }
  }
  return titles.empty() ? "no note has that text" : titles;
}

int main() {
  Notes kept;
  const auto notes = item<Notes>("notes");
  const ParamSpec title = {.name = "title", .type = "string", .synonyms = {"name"}, .required = true};
  const ParamSpec text = {.name = "text", .type = "string", .synonyms = {"content", "query"}, .required = true};
  const ParamSpec limit = {.name = "limit", .type = "integer", .minimum = 1, .maximum = 100, .default_ = 10};
  const server::Server server(
      {.name = "notes", .version = "1.0", .instructions = "Notes that are kept while the server runs."},
      {{.tool = {.name = "write_note", .description = "Writes a note under a title.", .params = {title, text}},
        .handler = handler(write_note, argument<std::string>("title"), argument<std::string>("text"), notes)},
       {.tool = {.name = "read_note", .description = "Shows the note of that title.", .params = {title}},
        .handler = handler(read_note, argument<std::string>("title"), notes),
        .annotations = {.read_only = true}},
       {.tool = {.name = "find_notes",
                 .description = "Lists the titles of notes with a text.",
                 .params = {text, limit}},
        .handler = handler(find_notes, argument<std::string>("text"), argument<int>("limit"), notes,
                           item<server::Call>("call")),
        .annotations = {.read_only = true}}},
      {.context = {{"notes", KeywordArgument::context(kept)}}});
  if (server.serve() > 0) {
    std::_Exit(1);  // a call that does not end still uses the notes
  }
}
