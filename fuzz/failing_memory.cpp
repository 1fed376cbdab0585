// SPDX-License-Identifier: MIT
#include <new>
#include <optional>

#include "allocations.hpp"
#include "requests.hpp"
#include "support/one_line.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/writer.hpp"

/// One request, from its JSON text to its handler's keywords, in which every allocation fails: each alone, and each
/// together with all that follow. Either the answer is what it always is or std::bad_alloc leaves, and nothing is lost.
namespace tool_binding::fuzz {
namespace {

class Request {
 public:
  explicit Request(Choices& choices)
      : declared_(make_tool(choices)),
        tool_(declared_),
        given_(make_request(choices, declared_)),
        line_(json::write(given_)),
        context_({{"query", KeywordArgument::context(item_)}, {"engine", KeywordArgument::context(item_)}}) {}

  /// What comes of the request is kept until the caller lets it go; a refusal counts as an answer.
  struct Answer {
    std::optional<NormalizedArguments> admitted;
    std::optional<KeywordArguments> keywords;
    std::optional<Text> refusal;
    bool overflowed = false;
  };

  [[nodiscard]] Answer answer() const {
    Answer answer;
    const Value read = json::read(line_);
    try {
      answer.admitted = normalize_arguments(tool_, given_);
      answer.keywords = handler_kwargs(handler_, bind_arguments(tool_, answer.admitted->arguments()), context_);
      (void)normalize_arguments(tool_, read.mapping());
    } catch (const ArgumentError& error) {
      answer.refusal = Text(error.message());
    } catch (const std::overflow_error&) {
      answer.overflowed = true;
    }
    return answer;
  }

  [[nodiscard]] std::string shown() const {
    const Answer answered = answer();
    return (answered.admitted ? one_line(*answered.admitted) : "") +
           (answered.keywords ? one_line(*answered.keywords) : "") +
           std::string(answered.refusal ? *answered.refusal : Text("")) + (answered.overflowed ? "overflow" : "");
  }

  [[nodiscard]] std::string inputs() const { return one_line(given_) + one_line(context_); }

 private:
  const std::string item_ = "the engine";
  ToolDeclaration declared_;
  ToolSpec tool_;
  ArgumentMap given_;
  std::string line_;
  KeywordArguments context_;
  Handler handler_ = {{{{.name = "engine"}, {.name = "query"}}}, {}};
};

/// Whether allocation number `first` was refused: there is no such allocation otherwise.
bool fails(const Request& request, std::size_t first, bool once) {
  const std::size_t before = live_blocks();
  bool left = false;
  const Refusing refusing(first, once);
  try {
    (void)request.answer();
  } catch (const std::bad_alloc&) {
    left = true;
  }
  const bool refused = refusing.refused();
  require(refused || !left, "std::bad_alloc has a reason");
  require(live_blocks() == before, "nothing leaks");
  return refused;
}

void check(Choices choices) {
  const Request request(choices);
  const std::string expected = request.shown();
  const std::string inputs = request.inputs();
  for (const bool once : {true, false}) {
    for (std::size_t first = 0; fails(request, first, once); ++first) {
      if (first % 16 == 0) {
        require(request.shown() == expected, "the same request succeeds afterwards", expected);
      }
    }
    require(request.shown() == expected && request.inputs() == inputs, "all is as before", inputs);
  }
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
