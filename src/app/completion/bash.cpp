#include <cctype>

#include "app/completion/completion.h"

namespace quillon::completion {
namespace {

constexpr std::string_view kBeginning = R"(# bash completion for PROGRAM. Made from its options.

# FUNCTION_files PATTERN: offers folders and the files that match.
FUNCTION_files() {
  local begun=$current
  # Without what quotes it; the shell quotes what it inserts.
  case $begun in
    [\"\']*) begun=${begun:1} ;;
    *) begun=${begun//\\/} ;;
  esac
  mapfile -t COMPREPLY < <(compgen -d -- "$begun"; compgen -f -X "!$1" -- "$begun")
  compopt -o filenames 2>/dev/null
}

FUNCTION() {
  local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} word index
  COMPREPLY=()
  # "--unit=mm" comes as three words.
  if [[ $current == = ]]; then
    current=
  elif [[ $option == = && $COMP_CWORD -gt 2 ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  # After "--" there are no options.
  for ((index = 1; index < COMP_CWORD; index++)); do
    word=${COMP_WORDS[index]}
    if [[ $word == -- ]]; then
      FUNCTION_files 'DRAWINGS'
      return
    fi
  done
  case $option in
)";

constexpr std::string_view kEnd = R"(  esac
  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W 'OPTIONS' -- "$current")
  else
    FUNCTION_files 'DRAWINGS'
  fi
}
complete -F FUNCTION PROGRAM
)";

void replaceAll(std::string& text, std::string_view what, std::string_view by) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
}

std::string joined(const std::vector<std::string>& words, std::string_view between) {
  std::string text;
  for (const std::string& word : words) text.append(text.empty() ? "" : between).append(word);
  return text;
}

/// A name without dashes, which not every mode of the shell takes.
std::string functionName(std::string_view program) {
  std::string name = "_";
  for (const char c : program) name += c == '-' ? '_' : c;
  return name;
}

/// Files with the extension in small or capital letters.
std::string pattern(const std::string& extension) {
  if (extension.empty()) return "*";
  std::string text = "*.";
  for (const char c : extension) {
    const auto capital = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    text.append({'[', c, capital, ']'});
  }
  return text;
}

/// The branch for what follows an option; "" for a switch.
std::string branch(const headless::ListedOption& option) {
  if (isPositional(option) || option.value.empty()) return {};
  const Offer offer = offerFor(option);
  std::string text = "    " + joined(option.names, " | ") + ")\n";
  if (!offer.words.empty()) {
    text += "      mapfile -t COMPREPLY < <(compgen -W '" + joined(offer.words, " ") +
            "' -- \"$current\")\n";
  } else if (offer.files) {
    text += "      FUNCTION_files '" + pattern(offer.extension) + "'\n";
  }
  return text + "      return\n      ;;\n";
}

}  // namespace

std::string bashCompletion(std::string_view program,
                           const std::vector<headless::ListedOption>& options) {
  std::string text(kBeginning);
  std::vector<std::string> names;
  std::string drawings;
  for (const headless::ListedOption& option : options) {
    text += branch(option);
    names.insert(names.end(), option.names.begin(), option.names.end());
    if (isPositional(option)) drawings = pattern(offerFor(option).extension);
  }
  text += kEnd;
  replaceAll(text, "OPTIONS", joined(names, " "));
  replaceAll(text, "DRAWINGS", drawings);
  replaceAll(text, "FUNCTION", functionName(program));
  replaceAll(text, "PROGRAM", program);
  return text;
}

}  // namespace quillon::completion
