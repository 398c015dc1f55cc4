#include <unistd.h>

#include "app/console/environment_language.h"
#include "app/console/terminal.h"

namespace quillon::console {

void prepareStreams() {
  // What a reader does not take must not be offered to it once more at the program's end.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
}

std::vector<std::string> processArguments(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

bool errorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

bool writeText(std::FILE* stream, std::string_view utf8) {
  return std::fwrite(utf8.data(), 1, utf8.size(), stream) == utf8.size();
}

bool userSpeaksGerman() { return environmentLanguage().starts_with("de"); }

}  // namespace quillon::console
