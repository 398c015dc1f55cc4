#include "app/completion/completion.h"

namespace quillon::completion {
namespace {

/// In single quotes, where fish knows two escapes.
std::string fishQuoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "'";
}

/// How the files of an option are offered: those with the extension first.
std::string fishFiles(const std::string& extension) {
  return extension.empty() ? " -F" : " -a '(__fish_complete_suffix ." + extension + ")'";
}

std::string fishValue(const headless::ListedOption& option) {
  const Offer offer = offerFor(option);
  if (offer.files) return (offer.extension.empty() ? " -r" : " -x") + fishFiles(offer.extension);
  std::string words;
  for (const std::string& word : offer.words) words.append(words.empty() ? "" : " ").append(word);
  return words.empty() ? " -x" : " -x -a " + fishQuoted(words);
}

std::string fishLine(const headless::ListedOption& option) {
  std::string line;
  for (const std::string& name : option.names) {
    const bool isLong = name.compare(0, 2, "--") == 0;
    line += isLong ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  if (isPositional(option)) {
    line += " -f" + fishFiles(offerFor(option).extension);
  } else if (!option.value.empty()) {
    line += fishValue(option);
  } else {
    line += " -f";
  }
  return line + " -d " + fishQuoted(option.help);
}

}  // namespace

std::string fishCompletion(std::string_view program,
                           const std::vector<headless::ListedOption>& options) {
  std::string text = "# fish completion for ";
  text.append(program).append(". Made from its options.\n");
  for (const headless::ListedOption& option : options) {
    text.append("complete -c ").append(program).append(fishLine(option)).append("\n");
  }
  return text;
}

}  // namespace quillon::completion
