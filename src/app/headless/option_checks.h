#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quillon::headless {

/// The words of an option and the numbers that they stand for.
using Words = std::map<std::string, int>;

/// Requires the whole text to be a finite number, in the form used in drawings; "" if it is one.
std::string checkNumber(const std::string& text);

/// The same, for a number other than 0.
std::string checkScale(const std::string& text);

/// Requires the number of an EAGLE layer, which a name may follow. A negative number would make
/// EAGLE delete layers.
std::string checkLayer(const std::string& text);

/// A number of bytes; K, M and G multiply by powers of 1,024. Nothing for an invalid text.
std::optional<std::uint64_t> sizeOf(std::string_view text);

/// Requires a text that sizeOf() understands.
std::string checkSize(const std::string& text);

/// A validator for a positive whole number of something.
CLI::Validator countOf(const std::string& things);

/// A validator for a whole number from 1 to `most`.
CLI::Validator upTo(unsigned most);

/// A validator that adds nothing to the help.
CLI::Validator quietCheck(std::string (*check)(const std::string&));

/// An option that takes one of a few words.
template <typename Value>
CLI::Option* addChoice(CLI::App& app, const char* name, Value& value, const Words& words,
                       const std::string& choices, const char* help) {
  const auto look = [words, choices](std::string& text) -> std::string {
    const auto found = words.find(text);
    if (found == words.end()) return "\"" + text + "\" is not one of " + choices;
    text = std::to_string(found->second);
    return {};
  };
  return app.add_option(name, value, help)->transform(CLI::Validator(look, ""))->type_name(choices);
}

}  // namespace quillon::headless
