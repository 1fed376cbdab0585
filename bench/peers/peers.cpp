// SPDX-License-Identifier: MIT
#include <rapidjson/document.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include "search_tool.hpp"
#include "tool_binding/call.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/writer.hpp"

/// usage: peers SCHEMA. What the layer and two validators of JSON Schema make of the text of a search's arguments.
///
/// Each line of the input is a peer, a time in milliseconds and the text, with tabs in between. The answer is one line:
/// the nanoseconds of processor time that the peer takes from the text to what a handler reads or a caller is told; at
/// a time of 0, that value or refusal itself, in JSON.
namespace {

using tool_binding::bench::daemon_context;
using tool_binding::bench::search_declaration;
using tool_binding::bench::search_handler;

/// What a peer says of a text: its refusal, or how many arguments a handler has to read and notes a caller.
struct Outcome {
  std::size_t arguments = 0;
  std::string refusal = {};
};

class Peer {
 public:
  virtual ~Peer() = default;
  virtual Outcome outcome(const std::string& text) = 0;
  /// The arguments of an admitted text, as its handler has them, and the notes on them.
  virtual std::string admitted(const std::string& text) { return "{\"value\":" + text + ",\"notes\":[]}"; }
};

class Layer : public Peer {
 public:
  Outcome outcome(const std::string& text) override {
    const tool_binding::Value read = reader_.read(text);
    const tool_binding::PreparedCall call = prepare_call(tool_, handler_, read.mapping(), context_);
    return call.is_admitted() ? Outcome{call.keywords().size() + call.notes().size()}
                              : Outcome{0, std::string(call.refusal())};
  }

  std::string admitted(const std::string& text) override {
    const tool_binding::Value read = reader_.read(text);
    const tool_binding::PreparedCall call = prepare_call(tool_, handler_, read.mapping(), context_);
    tool_binding::ArgumentMap values;
    for (const auto& [name, keyword] : call.keywords()) {
      if (const tool_binding::Value* value = keyword.value_if()) {
        values.set(name, *value);
      }
    }
    tool_binding::json::Writer writer;
    writer.write(tool_binding::Value(std::move(values)));
    return "{\"value\":" + std::string(writer.text()) + ",\"notes\":" + nlohmann::json(call.notes()).dump() + '}';
  }

 private:
  tool_binding::ToolSpec tool_{search_declaration()};
  tool_binding::Handler handler_ = search_handler();
  tool_binding::KeywordArguments context_ = daemon_context();
  tool_binding::json::Reader reader_;
};

class LayerReader : public Peer {
 public:
  Outcome outcome(const std::string& text) override { return {reader_.read(text).mapping().size()}; }

 private:
  tool_binding::json::Reader reader_;
};

class RapidJsonReader : public Peer {
 public:
  Outcome outcome(const std::string& text) override {
    rapidjson::Document document;
    document.Parse(text.data(), text.size());
    return {document.MemberCount()};
  }
};

class RapidJson : public Peer {
 public:
  explicit RapidJson(const std::string& schema) : schema_(parsed(schema)), validator_(schema_) {}

  Outcome outcome(const std::string& text) override {
    rapidjson::Document document;
    document.Parse(text.data(), text.size());
    validator_.Reset();
    if (document.Accept(validator_)) {
      return {document.MemberCount()};
    }
    rapidjson::StringBuffer where;
    validator_.GetInvalidDocumentPointer().Stringify(where);
    return {0, std::string(where.GetString()) + ": " + validator_.GetInvalidSchemaKeyword()};
  }

 private:
  static rapidjson::Document parsed(const std::string& text) {
    rapidjson::Document document;
    document.Parse(text.c_str());
    return document;
  }

  rapidjson::SchemaDocument schema_;
  rapidjson::SchemaValidator validator_;
};

class NlohmannReader : public Peer {
 public:
  Outcome outcome(const std::string& text) override { return {nlohmann::json::parse(text).size()}; }
};

class Valijson : public Peer {
 public:
  explicit Valijson(const std::string& schema) {
    const nlohmann::json document = nlohmann::json::parse(schema);
    valijson::SchemaParser().populateSchema(valijson::adapters::NlohmannJsonAdapter(document), schema_);
  }

  Outcome outcome(const std::string& text) override {
    const nlohmann::json document = nlohmann::json::parse(text);
    valijson::ValidationResults results;
    if (validator_.validate(schema_, valijson::adapters::NlohmannJsonAdapter(document), &results)) {
      return {document.size()};
    }
    std::string refusal;
    for (const valijson::ValidationResults::Error& error : results) {
      for (const std::string& step : error.context) {
        refusal += step;
      }
      refusal += ": " + error.description + '\n';
    }
    return {0, refusal};
  }

 private:
  valijson::Schema schema_;
  valijson::Validator validator_;
};

double processor_nanoseconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

double nanoseconds(Peer& peer, const std::string& text, double milliseconds) {
  static volatile std::size_t sink = 0;
  const double before = processor_nanoseconds();
  double turns = 0;
  double used = 0;
  while (used < milliseconds * 1e6) {
    for (int turn = 0; turn < 200; ++turn) {
      const Outcome outcome = peer.outcome(text);
      sink = sink + outcome.arguments + outcome.refusal.size();
    }
    turns += 200;
    used = processor_nanoseconds() - before;
  }
  return used / turns;
}

std::string answer(Peer& peer, const std::string& text) {
  const Outcome outcome = peer.outcome(text);
  return outcome.refusal.empty() ? peer.admitted(text) : nlohmann::json{{"refusal", outcome.refusal}}.dump();
}

std::string content(const char* path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: peers SCHEMA\n";
    return 2;
  }
  const std::string schema = content(argv[1]);
  Layer layer;
  LayerReader layer_reader;
  RapidJson rapidjson(schema);
  nlohmann::json without_rule = nlohmann::json::parse(schema);
  without_rule.erase("anyOf");
  RapidJson rapidjson_without_rule(without_rule.dump());
  RapidJsonReader rapidjson_reader;
  Valijson valijson(schema);
  NlohmannReader nlohmann_reader;
  const std::array<std::pair<std::string_view, Peer*>, 7> peers = {{{"layer", &layer},
                                                                    {"layer_reader", &layer_reader},
                                                                    {"rapidjson", &rapidjson},
                                                                    {"rapidjson_without_rule", &rapidjson_without_rule},
                                                                    {"rapidjson_reader", &rapidjson_reader},
                                                                    {"valijson", &valijson},
                                                                    {"nlohmann_reader", &nlohmann_reader}}};
  for (std::string line; std::getline(std::cin, line);) {
    const std::size_t first = line.find('\t');
    const std::size_t second = line.find('\t', first + 1);
    const double milliseconds = std::strtod(line.c_str() + first + 1, nullptr);
    const std::string text = line.substr(second + 1);
    for (const auto& [name, peer] : peers) {
      if (name == std::string_view(line).substr(0, first)) {
        if (milliseconds > 0) {
          std::cout << nanoseconds(*peer, text, milliseconds) << std::endl;
        } else {
          std::cout << answer(*peer, text) << std::endl;
        }
      }
    }
  }
}
