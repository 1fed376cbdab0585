// SPDX-License-Identifier: MIT
#include "object_writer.hpp"

namespace tool_binding::cli {

ObjectWriter::ObjectWriter(json::Writer& out) : out_(out) { out_.open_object(); }

void ObjectWriter::add(const Text& name, const Value& value) {
  out_.write_name(name);
  out_.write(value);
}

void ObjectWriter::add(const Text& name, const ArgumentMap& entries) {
  begin(name);
  ObjectWriter object(out_);
  for (const auto& [entry, value] : entries) {
    object.add(entry, value);
  }
  object.end();
}

void ObjectWriter::add(const Text& name, std::span<const std::string> texts) {
  begin(name);
  out_.open_list();
  for (const std::string& text : texts) {
    out_.write_text(text);
  }
  out_.close_list();
}

void ObjectWriter::add(const Text& name, const KeywordArguments& keywords) {
  begin(name);
  ObjectWriter object(out_);
  for (const auto& [keyword, argument] : keywords) {
    object.add(keyword, argument.is_context() ? argument.item<const Value>() : argument.value());
  }
  object.end();
}

void ObjectWriter::begin(const Text& name) { out_.write_name(name); }

void ObjectWriter::end() { out_.close_object(); }

}  // namespace tool_binding::cli
