// SPDX-License-Identifier: MIT
#include "enumeration_reading.hpp"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <set>
#include <stdexcept>

#include "tool_binding/admission.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding::json {

namespace {

bool is_scalar(const Value& value) { return !value.is_list() && !value.is_mapping(); }

/// What admission makes of each value as one of that type; none where one is refused.
std::optional<std::vector<Value>> read_as(std::string_view type, const std::vector<Value>& values) {
  const ToolSpec alone({.name = "enumeration", .params = {{.name = "value", .type = type}}});
  std::vector<Value> read;
  for (const Value& value : values) {
    try {
      const Admission admission = admit(alone, {{"value", value}});
      const Value* const found = admission.is_admitted() ? admission.arguments().find("value") : nullptr;
      if (found == nullptr) {
        return std::nullopt;
      }
      read.push_back(*found);
    } catch (const std::overflow_error&) {
      return std::nullopt;
    }
  }
  return read;
}

/// A value as a caller who is told of it sends it as text: true is "true", 1 is "1".
Text text_of_value(const Value& value) {
  return value.is_boolean() ? Text(value.boolean() ? "true" : "false") : plain_form(value);
}

/// The declared texts that are read as others: admission ignores case, and white space around what is sent.
void notice_shadowed(EnumerationReading& reading) {
  const ToolSpec alone({.name = "enumeration", .params = {{.name = "value", .type = "array", .enum_ = reading.texts}}});
  std::vector<Value> sent;
  for (const Text& text : reading.texts) {
    sent.emplace_back(text);
  }
  const Admission admission = admit(alone, {{"value", sent}});
  const Value* const read = admission.is_admitted() ? admission.arguments().find("value") : nullptr;
  for (std::size_t index = 0; read != nullptr && index < sent.size(); ++index) {
    if (read->list()[index] != sent[index]) {
      reading.noticed.push_back(quoted_form(sent[index]) + " is read as " + quoted_form(read->list()[index]) +
                                ": values that differ by case alone are one");
    }
  }
}

/// A text with white space around it is never matched: what is sent is stripped. Blank text stays as it is.
Text stripped(const Text& text) {
  constexpr std::string_view white_space = " \t\n\r\f\v";
  const std::size_t first = text.view().find_first_not_of(white_space);
  return first == std::string_view::npos
             ? Text()
             : Text(text.view().substr(first, text.view().find_last_not_of(white_space) + 1 - first));
}

void read_texts(EnumerationReading& reading, const std::vector<Value>& values, Text (*text)(const Value&)) {
  std::set<Text> known;
  for (const Value& value : values) {
    const Text whole = text(value);
    const Text bare = stripped(whole);
    if (bare != whole) {
      reading.noticed.push_back(quoted_form(Value(whole)) + " is declared without the white space around it");
    }
    if (known.insert(bare).second) {
      reading.texts.push_back(bare);
    }
  }
  notice_shadowed(reading);
}

/// Whole numbers become bounds where they have no gap, and texts where they have one.
void read_integers(EnumerationReading& reading, std::vector<Value> numbers) {
  std::sort(numbers.begin(), numbers.end(),
            [](const Value& left, const Value& right) { return left.integer() < right.integer(); });
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  const auto first = numbers.front().to_int64();
  const auto last = numbers.back().to_int64();
  const bool has_gap =
      !first || !last || static_cast<std::uint64_t>(*last) - static_cast<std::uint64_t>(*first) != numbers.size() - 1;
  if (!has_gap) {
    reading.minimum = numbers.front();
    reading.maximum = numbers.back();
    return;
  }
  for (const Value& number : numbers) {
    reading.texts.push_back(plain_form(number));
  }
  reading.noticed.emplace_back("its numbers have gaps: the handler gets one of them as text");
}

/// Truth values need no enumeration where both are allowed.
void read_truth_values(EnumerationReading& reading, const std::vector<Value>& values) {
  if (std::find(values.begin(), values.end(), Value(true)) == values.end() ||
      std::find(values.begin(), values.end(), Value(false)) == values.end()) {
    reading.lost = "its enumeration is not kept: " + std::string(values.front().boolean() ? "false" : "true") +
                   " is allowed as well";
  }
}

std::vector<Value> without_nulls(const Value& values) {
  std::vector<Value> others;
  std::copy_if(values.list().begin(), values.list().end(), std::back_inserter(others),
               [](const Value& value) { return !value.is_null(); });
  return others;
}

/// What an enumeration holds that no text can say; empty for none.
std::string what_is_lost(const Value& values) {
  if (!values.is_list()) {
    return "its enumeration is not kept: it is not a list";
  }
  if (!std::all_of(values.list().begin(), values.list().end(), is_scalar)) {
    return "its enumeration is not kept: its values have no texts";
  }
  return without_nulls(values).empty() ? "its enumeration is not kept: it allows nothing" : "";
}

}  // namespace

EnumerationReading read_enumeration(std::string_view type, const Value& values) {
  EnumerationReading reading{.type = type, .lost = what_is_lost(values)};
  if (!reading.lost.empty()) {
    return reading;
  }
  const std::vector<Value> sayable = without_nulls(values);
  const auto read = type == "string" ? std::nullopt : read_as(type, sayable);
  if (!read) {
    if (type != "string") {
      reading.type = "string";
      reading.noticed.push_back("takes text: not every value of its enumeration is " +
                                std::string(type == "integer" ? "an integer" : "a " + std::string(type)));
    }
    read_texts(reading, sayable, text_of_value);
  } else if (type == "integer") {
    read_integers(reading, *read);
  } else if (type == "boolean") {
    read_truth_values(reading, *read);
  } else {
    read_texts(reading, *read, plain_form);
    reading.noticed.emplace_back("has an enumeration: the handler gets one of its numbers as text");
  }
  return reading;
}

EnumerationReading read_item_enumeration(const Value& values) {
  EnumerationReading reading{.type = "array", .lost = what_is_lost(values)};
  if (!reading.lost.empty()) {
    return reading;
  }
  const std::vector<Value> sayable = without_nulls(values);
  read_texts(reading, sayable, plain_form);
  if (!std::all_of(sayable.begin(), sayable.end(), [](const Value& value) { return value.is_text(); })) {
    reading.noticed.emplace_back("has an enumeration: the handler gets its items as texts");
  }
  return reading;
}

}  // namespace tool_binding::json
