#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "app/console/environment_language.h"
#include "app/console/terminal.h"

namespace quillon::console {

namespace {

bool isClosed(int descriptor) { return fcntl(descriptor, F_GETFD) < 0 && errno == EBADF; }

/// Opens something harmless; the system assigns the lowest free descriptor.
bool openNowhere(int flags) { return open("/dev/null", flags) >= 0 || open("/", O_RDONLY) >= 0; }

}  // namespace

/// Occupies closed standard streams: the next file to be opened would get their descriptor, and
/// messages would end up in a script. The stand-ins are opened for the wrong direction, so that
/// using such a stream still fails.
void prepareStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    const bool open =
        !isClosed(stream) || openNowhere(stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    if (!open) return;
  }
  // Data that a reader refused must not be written again when the program ends.
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
