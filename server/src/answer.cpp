// SPDX-License-Identifier: MIT
#include "tool_binding/server/answer.hpp"

#include <string>

namespace tool_binding::server {

namespace {

/// Base64 (RFC 4648) with padding.
std::string base64_of(std::string_view bytes) {
  constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t place = 0; place < bytes.size(); place += 3) {
    const std::string_view group = bytes.substr(place, 3);
    unsigned bits = 0;
    for (std::size_t at = 0; at < 3; ++at) {
      bits = bits << 8U | (at < group.size() ? static_cast<unsigned char>(group[at]) : 0U);
    }
    for (std::size_t at = 0; at < 4; ++at) {
      text += at <= group.size() ? letters[bits >> (18U - 6U * at) & 63U] : '=';
    }
  }
  return text;
}

void append_given(ArgumentMap& block, const Text& name, const Text& text) {
  if (!text.empty()) {
    block.append(name, text);
  }
}

std::string in_words(std::string_view kind, std::string_view what, std::size_t bytes) {
  return std::string(kind).append(" (").append(what).append(", ").append(std::to_string(bytes)).append(" bytes)");
}

ArgumentMap resource_block(const Text& uri, const Text& mime_type, const Text& member, const Value& content) {
  ArgumentMap resource = {{"uri", uri}};
  append_given(resource, "mimeType", mime_type);
  resource.append(member, content);
  return {{"type", "resource"}, {"resource", std::move(resource)}};
}

}  // namespace

Content Content::text(const Text& text) { return {Kind::text, {{"type", "text"}, {"text", text}}, text}; }

Content Content::image(std::string_view bytes, const Text& mime_type) {
  return {Kind::image,
          {{"type", "image"}, {"data", base64_of(bytes)}, {"mimeType", mime_type}},
          in_words("an image", mime_type, bytes.size())};
}

Content Content::audio(std::string_view bytes, const Text& mime_type) {
  return {Kind::audio,
          {{"type", "audio"}, {"data", base64_of(bytes)}, {"mimeType", mime_type}},
          in_words("a sound", mime_type, bytes.size())};
}

Content Content::link(const ResourceLink& link) {
  ArgumentMap block = {{"type", "resource_link"}, {"uri", link.uri}, {"name", link.name}};
  append_given(block, "title", link.title);
  append_given(block, "description", link.description);
  append_given(block, "mimeType", link.mime_type);
  if (link.bytes) {
    block.append("size", *link.bytes);
  }
  return {Kind::link, std::move(block), std::string(link.name).append(": ").append(link.uri)};
}

Content Content::resource(const Text& uri, const Text& text, const Text& mime_type) {
  return {Kind::resource, resource_block(uri, mime_type, "text", text), text};
}

Content Content::blob(const Text& uri, std::string_view bytes, const Text& mime_type) {
  return {Kind::resource, resource_block(uri, mime_type, "blob", base64_of(bytes)),
          in_words(uri, mime_type.empty() ? "bytes" : mime_type.view(), bytes.size())};
}

Answer Answer::structured(Value value, std::vector<Content> content) {
  Answer answer(std::move(content));
  answer.structured_ = std::move(value);
  return answer;
}

Answer Answer::error(const Text& words) { return error(std::vector{Content::text(words)}); }

Answer Answer::error(std::vector<Content> content) {
  Answer answer(std::move(content));
  answer.is_error_ = true;
  return answer;
}

Answer Answer::of(const Value& value) {
  return value.is_text() ? Answer(Content::text(value.shared_text())) : structured(value);
}

}  // namespace tool_binding::server
