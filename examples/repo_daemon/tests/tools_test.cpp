// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "conversation.hpp"

namespace repo_daemon_test {

TEST(RepoDaemonTools, find_lines) {
  expect_calls({
      {"a line found, with its file and number; what was passed over is said", "search", R"({"query": "Finds"})",
       "README.md:3: Finds places.\n1 line in 1 file of 6, 2 files passed over: no text, too large or not readable"},
      {"notes say how the request was read", "search", R"({"q": "reopen", "include": "*.cpp", "max_results": "5"})",
       "src/index.cpp:4:   return place + reopen(place);\n1 line in 1 file of 1\nnote: 'q' was read as 'query'\n"
       "note: 'include' was read as 'patterns'\nnote: 'max_results' was read as 'limit'"},
      {"a whole word, which also stands behind a part of another", "search",
       R"({"query": "open", "path": "src/index.cpp", "match": "Word"})",
       "src/index.cpp:3: int Index::open(int place) {\nsrc/index.cpp:8:   return open(0);\n2 lines in 1 file of 1"},
      {"lines around, none twice", "search", R"({"query": "open", "path": "src/index.cpp", "context_lines": 1})",
       "src/index.cpp-2- \nsrc/index.cpp:3: int Index::open(int place) {\n"
       "src/index.cpp:4:   return place + reopen(place);\nsrc/index.cpp-5- }\nsrc/index.cpp-7- int Index::close() {\n"
       "src/index.cpp:8:   return open(0);\nsrc/index.cpp-9- }\n3 lines in 1 file of 1"},
      {"either case", "search", R"({"query": "open", "path": "tools", "ignore_case": "yes"})",
       "tools/run.py:2:     return OPEN(path)\n1 line in 1 file of 1"},
      {"all lines are counted, beyond the limit too", "search", R"({"query": "open", "path": "src", "limit": 1})",
       "src/index.cpp:3: int Index::open(int place) {\n4 lines in 2 files of 2, the first 1 shown"},
      {"a byte that is not text is shown as the replacement character, and a long line is cut between characters",
       "search", R"({"query": "open", "patterns": ["odd/l*.txt"]})",
       "odd/latin.txt:1: caf\xEF\xBF\xBD open\nodd/long.txt:1: " + std::string(299, 'x') +
           "…\n2 lines in 2 files of 2, 1 file passed over: no text, too large or not readable"},
  });
}

TEST(RepoDaemonTools, list_outline_and_count) {
  expect_calls({
      {"a directory: neither links nor pipes nor hidden names", "search", R"({"action": "ls"})",
       "README.md  34 bytes\nodd/\nsrc/\ntools/\n4 entries\n"
       "note: the action 'ls' was read as 'list'"},
      {"a directory below, within the limit", "search", R"({"action": "list", "path": "./src/", "limit": 1})",
       "index.cpp  127 bytes\n2 entries, the first 1 shown"},
      {"what a pattern matches, and the directories in which it might match", "search",
       R"({"action": "list", "patterns": ["src/*.{h,c}pp", "*.md"], "path": "."})",
       "README.md  34 bytes\nodd/\nsrc/\ntools/\n4 entries"},
      {"no directory in which no pattern can match", "search", R"({"action": "list", "patterns": "src/*.cpp"})",
       "src/\n1 entry"},
      {"a file alone", "search", R"({"action": "list", "path": "src/index.hpp"})", "index.hpp  69 bytes\n1 entry"},
      {"the symbols of a source file", "search", R"({"action": "outline", "path": "src/index.cpp"})",
       "3: function Index::open\n7: function Index::close\n2 symbols"},
      {"some kinds alone", "search", R"({"action": "outline", "path": "src/index.hpp", "kinds": "Type, heading"})",
       "3: type Index\n1 symbol"},
      {"counts by kind, most lines first", "search", R"({"action": "stats", "patterns": "src/**, *.md"})",
       ".cpp: 1 file, 9 lines, 127 bytes\n.hpp: 1 file, 6 lines, 69 bytes\n.md: 1 file, 5 lines, 34 bytes\n"
       "in all: 3 files, 20 lines, 230 bytes"},
  });
}

TEST(RepoDaemonTools, read_files_and_status) {
  expect_calls({
      {"a whole file", "read", R"({"path": "README.md"})",
       "README.md: lines 1 to 5 of 5\n1: # Atlas\n2: \n3: Finds places.\n4: \n5: ## Use it"},
      {"some lines of one", "read", R"({"file": "tools/run.py", "start": "2", "end": 9})",
       "tools/run.py: lines 2 to 2 of 2\n2:     return OPEN(path)\nnote: 'file' was read as 'path'\n"
       "note: 'start' was read as 'first_line'\nnote: 'end' was read as 'last_line'"},
      {"so many from one on", "read", R"({"path": "src/index.cpp", "offset": 3, "limit": 2})",
       "src/index.cpp: lines 3 to 4 of 9\n3: int Index::open(int place) {\n4:   return place + reopen(place);\n"
       "note: 'offset' was read as 'first_line'"},
      {"the fewer of both", "read", R"({"path": "src/index.cpp", "last_line": 1, "limit": 2})",
       "src/index.cpp: lines 1 to 1 of 9\n1: #include \"index.hpp\""},
      {"a last line before the first", "read", R"({"path": "README.md", "first_line": 3, "last_line": 2})",
       "README.md: no line of 5"},
      {"a first line behind the end", "read", R"({"path": "README.md", "first_line": 123456789012345678901})",
       "refused: 'README.md' ends with line 5"},
      {"by pattern, the newest first", "files", R"({"pattern": "index.*, **/run.??"})",
       "2001-09-09 00:46:40Z  src/index.cpp  127 bytes\n2001-09-08 23:46:40Z  src/index.hpp  69 bytes\n"
       "2001-09-08 22:46:40Z  tools/run.py  40 bytes\n3 files\nnote: 'pattern' was read as 'patterns'"},
      {"a text is not a list where its commas stand between braces", "files",
       R"({"patterns": "[Rr]*.{md,py}, **/[!a-h]*.hpp"})",
       "2001-09-09 01:46:40Z  README.md  34 bytes\n2001-09-08 23:46:40Z  src/index.hpp  69 bytes\n"
       "2001-09-08 22:46:40Z  tools/run.py  40 bytes\n3 files"},
      {"all, as the registry's default says, and how many more", "files", R"({"limit": 1})",
       "2001-09-09 01:46:40Z  README.md  34 bytes\n8 files, the newest 1 shown"},
      {"what is served", "status", "{}", "root: ROOT\n8 files, 9437781 bytes\nnewest: README.md, 2001-09-09 01:46:40Z"},
  });
}

TEST(RepoDaemonTools, refuse_what_the_registry_does_not_take) {
  expect_calls({
      {"all that is wrong at once, in the layer's words", "search", R"({"limt": 3, "regex": true})",
       "refused: Unknown parameter 'limt' for search. Did you mean 'limit'? It takes: query, path, patterns, match, "
       "ignore_case, context_lines, kinds, limit.; Unknown parameter 'regex' for search. It takes: query, path, "
       "patterns, match, ignore_case, context_lines, kinds, limit.; search 'find' needs 'query'"},
      {"what an action needs", "search", R"({"action": "outline"})", "refused: search 'outline' needs 'path'"},
      {"an action", "search", R"({"action": "serch"})",
       "refused: Unknown action 'serch' for search: one of find, list, outline, stats"},
      {"what every call needs", "read", R"({"path": " "})", "refused: read needs 'path'"},
      {"patterns that would take long", "files", R"({"patterns": [")" + std::string(401, '*') + R"("]})",
       "refused: there must not be more than 100 patterns, nor more than 400 bytes of them together"},
      {"a pattern that is never closed", "files", R"({"patterns": ["*.{cpp"]})",
       "refused: the pattern '*.{cpp' has a '{' without its '}': write '\\{' for the character itself"},
      {"a tool", "serch", "{}", "error: Unknown tool 'serch'. Did you mean 'search'?"},
      {"arguments that are not an object", "read", "[]", "error: 'arguments' must be an object"},
  });
}

TEST(RepoDaemonTools, stay_below_the_root) {
  expect_calls({
      {"up", "read", R"({"path": "../outside/secret.txt"})", "refused: '../outside/secret.txt' is outside the root"},
      {"down and up", "read", R"({"path": "src/../../outside/secret.txt"})",
       "refused: 'src/../../outside/secret.txt' is outside the root"},
      {"up and down again", "search", R"({"action": "list", "path": "../root"})",
       "refused: '../root' is outside the root"},
      {"up, within the root", "read", R"({"path": "src/../tools/run.py", "last_line": 1})",
       "tools/run.py: lines 1 to 1 of 2\n1: def main(path):"},
      {"an absolute path elsewhere", "read", R"({"path": "/etc/hostname"})",
       "refused: '/etc/hostname' is outside the root"},
      {"one that only begins as the root does", "read", R"({"path": "ROOTed/secret.txt"})",
       "refused: 'ROOTed/secret.txt' is outside the root"},
      {"one from the root out", "read", R"({"path": "ROOT/../outside/secret.txt"})",
       "refused: 'ROOT/../outside/secret.txt' is outside the root"},
      {"one below the root", "read", R"({"path": "ROOT/README.md", "last_line": 1})",
       "README.md: lines 1 to 1 of 5\n1: # Atlas"},
      {"a link to a file outside", "read", R"({"path": "leak.txt"})",
       "refused: 'leak.txt' is a symbolic link, and none is followed"},
      {"a link to a directory outside", "read", R"({"path": "leak/secret.txt"})",
       "refused: 'leak' is a symbolic link, and none is followed"},
      {"a search there", "search", R"({"query": "open", "path": "leak"})",
       "refused: 'leak' is a symbolic link, and none is followed"},
      {"a link within", "read", R"({"path": "alias/index.hpp"})",
       "refused: 'alias' is a symbolic link, and none is followed"},
      {"a zero byte, behind which a path would end", "read", R"({"path": "README.md\u0000.txt"})",
       "refused: 'README.md\\x00.txt' is not a path"},
      {"a hidden file", "read", R"({"path": "src/../.hidden/key"})",
       "refused: 'src/../.hidden/key' is hidden, and nothing hidden is served"},
      {"a hidden directory", "search", R"({"action": "list", "path": ".hidden"})",
       "refused: '.hidden' is hidden, and nothing hidden is served"},
      {"a path that no listing shows", "read", R"({"path": ")" + std::string(4097, 'x') + R"("})",
       "refused: '" + std::string(300, 'x') + "…' is longer than the 4096 bytes of a path"},
      {"a pipe, which would keep the daemon waiting", "read", R"({"path": "pipe"})",
       "refused: 'pipe' is neither a file nor a directory"},
      {"what is not there", "read", R"({"path": "src/missing.cpp"})", "refused: 'src/missing.cpp' is not there"},
      {"a file as a directory", "read", R"({"path": "README.md/x"})",
       "refused: 'README.md' is a file, not a directory"},
      {"a directory as a file", "read", R"({"path": "src"})", "refused: 'src' is a directory, not a file"},
      {"the root as a file", "search", R"({"action": "outline", "path": "ROOT"})",
       "refused: '.' is a directory, not a file"},
      {"binary data", "read", R"({"path": "odd/data.bin"})", "refused: 'odd/data.bin' holds binary data, not text"},
      {"a file that is too large", "read", R"({"path": "odd/large.txt"})",
       "refused: 'odd/large.txt' is larger than the 8388608 bytes that are read of one file"},
  });
}

TEST(RepoDaemonTools, show_names_and_lines_that_cannot_be_taken_for_others) {
  Conversation conversation;
  conversation.tree().write("root/new/a\nREADME.md:1: b\\n.\xE9\x1B",
                            "class A\x1B[2J\xE2\x80\xAE {\rREADME.md:9: \\n\t;\n");
  const std::string name = R"(a\nREADME.md:1: b\\n.\xe9\x1b)";
  const std::string line = "class A\\x1b[2J\\u202e {\\rREADME.md:9: \\n\t;";
  const struct {
    const char* tool;
    const char* arguments;
    std::string expected;
  } rows[] = {
      {"search", R"({"query": "class", "path": "new"})", "new/" + name + ":1: " + line + "\n1 line in 1 file of 1"},
      {"search", R"({"action": "list", "path": "new"})", name + "  35 bytes\n1 entry"},
      {"search", R"({"action": "stats", "path": "new"})",
       R"(.\xe9\x1b)" + std::string(": 1 file, 1 line, 35 bytes\nin all: 1 file, 1 line, 35 bytes")},
      {"files", R"({"path": "new"})", "2001-09-08 14:46:40Z  new/" + name + "  35 bytes\n1 file"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(conversation.call(row.tool, row.arguments), row.expected) << row.arguments;
  }
}

/// Each occurrence of the word begins and ends within another one, so that none is whole.
TEST(RepoDaemonTools, look_for_a_word_without_reading_a_line_again_for_each_occurrence) {
  Conversation conversation;
  std::string line;
  for (int count = 0; count < 2'000'000; ++count) {
    line += "ab-";
  }
  conversation.tree().write("root/long/line.txt", line);
  conversation.tree().write("root/long/last.txt", line.substr(0, 30'000) + "b-a");
  EXPECT_EQ(conversation.call("search",
                              R"({"path": "long", "match": "word", "query": "b-)" + line.substr(0, 15'000) + "a\"}"),
            "0 lines in 0 files of 2");
  EXPECT_EQ(conversation.call("search", R"({"path": "long", "match": "word", "query": "ab-b-a"})"),
            "long/last.txt:1: " + line.substr(0, 300) + "…\n1 line in 1 file of 2");
}

}  // namespace repo_daemon_test
