#include "app/headless/option_adder.h"

#include <algorithm>

namespace quillon::headless {
namespace {

/// Whether an argument may be the option of this name: of "--name" also with a value after "=", of
/// "-n" together with others and a value.
bool mayName(std::string_view argument, std::string_view name) {
  if (!name.starts_with("--")) {
    return argument.size() > 1 && argument[0] == '-' && argument[1] != '-';
  }
  if (!argument.starts_with(name)) return false;
  argument.remove_prefix(name.size());
  return argument.empty() || argument.front() == '=';
}

}  // namespace

bool OptionAdder::mayBeNamed(std::string_view names) const {
  if (addsAll() || !names.starts_with('-')) return true;
  while (!names.empty()) {
    const std::string_view name = names.substr(0, names.find(','));
    for (const std::string& argument : *arguments_) {
      if (mayName(argument, name)) return true;
    }
    names.remove_prefix(std::min(name.size() + 1, names.size()));
  }
  return false;
}

std::string OptionAdder::toNumber(std::string& text, const std::vector<Word>& words,
                                  const std::string& choices) {
  const auto found = std::find_if(words.begin(), words.end(),
                                  [&text](const Word& word) { return word.text == text; });
  if (found == words.end()) return "\"" + text + "\" is not one of " + choices;
  text = std::to_string(found->number);
  return {};
}

}  // namespace quillon::headless
