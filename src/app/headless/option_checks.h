#pragma once

#include <CLI/CLI.hpp>
#include <map>
#include <string>

namespace quillon::headless {

/// The words of an option and the numbers that they stand for.
using Words = std::map<std::string, int>;

/// Requires the whole text to be a finite number, in the form used in drawings; "" if it is one.
std::string checkNumber(const std::string& text);

/// An option that takes one of a few words.
template <typename Value>
void addChoice(CLI::App& app, const char* name, Value& value, const Words& words,
               const std::string& choices, const char* help) {
  const auto look = [words, choices](std::string& text) -> std::string {
    const auto found = words.find(text);
    if (found == words.end()) return "\"" + text + "\" is not one of " + choices;
    text = std::to_string(found->second);
    return {};
  };
  app.add_option(name, value, help)->transform(CLI::Validator(look, ""))->type_name(choices);
}

}  // namespace quillon::headless
