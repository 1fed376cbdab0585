// SPDX-License-Identifier: MIT
#include "object_writer.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "tool_binding/tool_binding.hpp"

namespace tool_binding::cli {

ObjectWriter::ObjectWriter(json::Writer& out) : out_(out) { out_.open_object(); }

void ObjectWriter::add(const Text& name, const Value& value) {
  out_.write_name(name);
  out_.write(value);
}

void ObjectWriter::add(const Text& name, const ArgumentMap& entries) {
  begin(name);
  ObjectWriter object(out_);
  object.add_entries(entries);
  object.end();
}

void ObjectWriter::add_entries(const ArgumentMap& entries) {
  for (const auto& [name, value] : entries) {
    add(name, value);
  }
}

void ObjectWriter::add(const Text& name, const std::vector<std::string>& texts) {
  begin(name);
  out_.open_list();
  for (const std::string& text : texts) {
    out_.write_text(text);
  }
  out_.close_list();
}

void ObjectWriter::add_bound(ArgumentMap bound, const Handler& handler, const KeywordArguments& context) {
  begin("bound");
  ObjectWriter first(out_);
  const std::size_t begin_of_bound = out_.text().size();
  first.add_entries(bound);
  const std::size_t size_of_bound = out_.text().size() - begin_of_bound;
  first.end();

  // The keywords begin with what is bound, unless a context item has replaced some of it.
  const std::size_t count = bound.size();
  const KeywordArguments keywords = handler_kwargs(handler, std::move(bound), context);
  const auto behind_bound = keywords.begin() + static_cast<std::ptrdiff_t>(count);
  const bool begin_alike =
      std::none_of(keywords.begin(), behind_bound, [](const auto& keyword) { return keyword.value.is_context(); });
  begin("keywords");
  ObjectWriter second(out_);
  if (begin_alike) {
    out_.write_again(begin_of_bound, size_of_bound);
  }
  second.add_entries(keywords, begin_alike ? count : 0);
  second.end();
}

void ObjectWriter::add_entries(const KeywordArguments& keywords, std::size_t first) {
  for (std::size_t index = first; index < keywords.size(); ++index) {
    const auto& [name, argument] = keywords[index];
    add(name, argument.is_context() ? argument.item<const Value>() : argument.value());
  }
}

void ObjectWriter::begin(const Text& name) { out_.write_name(name); }

void ObjectWriter::end() { out_.close_object(); }

}  // namespace tool_binding::cli
