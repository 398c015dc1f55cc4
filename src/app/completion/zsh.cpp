#include "app/completion/completion.h"

namespace quillon::completion {
namespace {

/// For a part of what _arguments takes, within single quotes of the shell.
std::string zshEscaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '\'') {
      escaped += "'\\''";
      continue;
    }
    if (c == '[' || c == ']' || c == ':' || c == '\\') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

/// The action of _arguments that offers the value.
std::string zshAction(const headless::ListedOption& option) {
  const Offer offer = offerFor(option);
  if (offer.files && offer.extension.empty()) return "_files";
  if (offer.files) return "_files -g \"*.(#i)" + offer.extension + "\"";
  std::string words;
  for (const std::string& word : offer.words) {
    words.append(words.empty() ? "" : " ").append(zshEscaped(word));
  }
  return words.empty() ? " " : "(" + words + ")";
}

/// The names with which the entry of an option begins: each excludes the others and itself.
std::string zshNames(const headless::ListedOption& option) {
  const bool takesValue = !option.value.empty();
  std::string all;
  std::string choices;
  for (const std::string& name : option.names) {
    const bool isLong = name.compare(0, 2, "--") == 0;
    all.append(all.empty() ? "" : " ").append(name);
    choices.append(choices.empty() ? "" : ",").append(name);
    if (takesValue) choices += isLong ? "=" : "+";
  }
  const std::string excluded = "'(" + all + ")'";
  return option.names.size() > 1 ? excluded + "{" + choices + "}" : excluded + choices;
}

std::string zshLine(const headless::ListedOption& option) {
  std::string line;
  if (isPositional(option)) {
    line = "'*:";
  } else {
    line = zshNames(option) + "'[" + zshEscaped(option.help) + "]";
    if (option.value.empty()) return line + "'";
    line += ":";
  }
  return line + zshEscaped(option.value) + ":" + zshAction(option) + "'";
}

}  // namespace

std::string zshCompletion(std::string_view program,
                          const std::vector<headless::ListedOption>& options) {
  std::string text = "#compdef ";
  text.append(program).append("\n# Made from the options of ").append(program).append(".\n");
  text += "_arguments -s -S";
  for (const headless::ListedOption& option : options) {
    text.append(" \\\n  ").append(zshLine(option));
  }
  return text + "\n";
}

}  // namespace quillon::completion
