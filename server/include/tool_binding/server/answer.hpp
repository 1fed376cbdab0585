// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/text.hpp"
#include "tool_binding/value.hpp"

/// What a tool's handler answers with.
namespace tool_binding::server {

/// A resource that a caller may fetch for itself.
struct ResourceLink {
  Text uri;
  Text name;
  Text title = {};
  Text description = {};
  Text mime_type = {};
  std::optional<std::uint64_t> bytes = {};  ///< its size, where it is known
};

/// One block of an answer. A client whose version of the protocol lacks the kind of a block gets words instead of it.
class TOOL_BINDING_API Content {
 public:
  enum class Kind : std::uint8_t { text, image, audio, link, resource };

  [[nodiscard]] static Content text(const Text& text);

  /// An image or a sound; the bytes are those of its file, and are encoded for the message here.
  [[nodiscard]] static Content image(std::string_view bytes, const Text& mime_type);
  [[nodiscard]] static Content audio(std::string_view bytes, const Text& mime_type);

  [[nodiscard]] static Content link(const ResourceLink& link);

  /// A resource with its content, which is text or any bytes.
  [[nodiscard]] static Content resource(const Text& uri, const Text& text, const Text& mime_type = {});
  [[nodiscard]] static Content blob(const Text& uri, std::string_view bytes, const Text& mime_type = {});

  [[nodiscard]] Kind kind() const noexcept { return kind_; }

  /// The block as a message has it.
  [[nodiscard]] const Value& block() const noexcept { return block_; }

  /// What a client gets to read that does not know the kind.
  [[nodiscard]] const Text& words() const noexcept { return words_; }

 private:
  Content(Kind kind, ArgumentMap block, Text words) : kind_(kind), block_(std::move(block)), words_(std::move(words)) {}

  Kind kind_;
  Value block_;
  Text words_;
};

/// What comes of a call: content, a structured value, or an error that the caller is to read and mend the call by.
class TOOL_BINDING_API Answer {
 public:
  // NOLINTBEGIN(google-explicit-constructor)
  /// A text is content. Any other value is structured, and is shown as JSON in the content too.
  template <class Source>
  requires std::convertible_to<const Source&, Value> Answer(const Source& source) : Answer(of(source)) {}
  Answer(Content content) : content_{std::move(content)} {}
  Answer(std::vector<Content> content) noexcept : content_(std::move(content)) {}
  // NOLINTEND(google-explicit-constructor)

  /// A structured value, beside content that says the same to people. Without content it is shown there as JSON.
  [[nodiscard]] static Answer structured(Value value, std::vector<Content> content = {});

  /// Why the call came to nothing, and what to send instead. A handler may as well throw ArgumentError.
  [[nodiscard]] static Answer error(const Text& words);
  [[nodiscard]] static Answer error(std::vector<Content> content);

  [[nodiscard]] std::span<const Content> content() const noexcept { return content_; }
  [[nodiscard]] const std::optional<Value>& structured_value() const noexcept { return structured_; }
  [[nodiscard]] bool is_error() const noexcept { return is_error_; }

 private:
  [[nodiscard]] static Answer of(const Value& value);

  std::vector<Content> content_;
  std::optional<Value> structured_;
  bool is_error_ = false;
};

}  // namespace tool_binding::server
