// SPDX-License-Identifier: MIT
#include "tool_binding/tool_binding.hpp"

/// Compiled and never run. A compiler that knows lifetimes warns of each line that says "dangles", and of no other.
namespace tool_binding {

Value made();
Text named();
void log(std::string_view words);

std::string_view returned() {
  return named();  // dangles
}

void taken_from_temporaries() {
  const std::string_view view = plain_form(made()).view();              // dangles
  const std::string_view converted = plain_form(made());                // dangles
  const char* const bytes = plain_form(made()).c_str();                 // dangles
  const std::string_view text = made().text();                          // dangles
  const Value* const found = made().mapping().find("a");                // dangles
  const Value& value = KeywordArgument(made()).value();                 // dangles
  const std::string_view message = ValueError("a").message();           // dangles
  const ActionName action = std::string("a text that is long enough");  // dangles
  for (const auto& entry : ArgumentMap{{"a", 1}}) {
    log(entry.name);
  }
  static_cast<void>(view), static_cast<void>(converted), static_cast<void>(bytes), static_cast<void>(text);
  static_cast<void>(found), static_cast<void>(value), static_cast<void>(message), static_cast<void>(action);
}

/// What programs write every day, and may.
void used_before_the_temporary_goes(const ToolSpec& tool, const ArgumentMap& arguments) {
  log(plain_form(made()));
  log(plain_form(made()).view());
  log(made().text().substr(1));
  const std::string copied(plain_form(made()).view());
  const auto text = made().text();
  const ArgumentMap& mapping = made().mapping();
  for (const Value& item : made().list()) {
    log(plain_form(item) + text + copied);
  }
  for (const auto& [name, value] : made().mapping()) {
    log(name + "=" + plain_form(value));
  }
  for (const std::string& note : normalize_arguments(tool, arguments).notes()) {
    log(note);
  }
  const Value limit = made().mapping().at("limit");
  const Value& same = mapping.at("limit");
  log(limit == same ? std::string_view("same") : text);
}

}  // namespace tool_binding
