// SPDX-License-Identifier: MIT
#include "object_writer.hpp"

#include "tool_binding/json/writer.hpp"

namespace tool_binding::cli {

ObjectWriter::ObjectWriter(std::string& out) : out_(out) { out_ += '{'; }

void ObjectWriter::add(const Text& name, const Value& value) {
  begin(name);
  json::write_to(out_, value);
}

void ObjectWriter::add(const Text& name, const ArgumentMap& entries) {
  begin(name);
  ObjectWriter object(out_);
  for (const auto& [entry, value] : entries) {
    object.add(entry, value);
  }
  object.end();
}

void ObjectWriter::add(const Text& name, const KeywordArguments& keywords) {
  begin(name);
  ObjectWriter object(out_);
  for (const auto& [keyword, argument] : keywords) {
    object.add(keyword, argument.is_context() ? argument.item<const Value>() : argument.value());
  }
  object.end();
}

void ObjectWriter::begin(const Text& name) {
  if (!is_empty_) {
    out_ += ", ";
  }
  is_empty_ = false;
  json::write_to(out_, name);
  out_ += ": ";
}

void ObjectWriter::end() { out_ += '}'; }

}  // namespace tool_binding::cli
