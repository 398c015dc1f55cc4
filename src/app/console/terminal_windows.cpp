#include <fcntl.h>
#include <io.h>
#include <windows.h>
// The order matters.
#include <shellapi.h>

#include <cstdint>

#include "app/console/environment_language.h"
#include "app/console/terminal.h"

namespace quillon::console {
namespace {

HANDLE handleOf(std::FILE* stream) {
  return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
}

bool isConsole(std::FILE* stream) {
  DWORD mode = 0;
  return GetConsoleMode(handleOf(stream), &mode) != 0;
}

std::wstring wide(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring text(utf8.size(), L'\0');
  const int length = static_cast<int>(text.size());
  text.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), length)));
  return text;
}

std::string narrow(const wchar_t* text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(size > 0 ? size : 1), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
  utf8.pop_back();  // the NUL
  return utf8;
}

/// Makes a quoted folder with a trailing backslash ("C:\work\" --force) work: normally
/// that backslash would escape the quote and join the rest to the name. Within quotes we let it do
/// so only where the quote is not followed by a blank or the end.
std::wstring withFoldersClosed(std::wstring_view line) {
  std::wstring out;
  bool quoted = false;
  std::size_t backslashes = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == L'"') {
      const bool escaped = backslashes % 2 == 1;
      const bool last = i + 1 == line.size() || line[i + 1] == L' ' || line[i + 1] == L'\t';
      if (quoted && escaped && last) out += L'\\';
      if (!escaped || (quoted && last)) quoted = !quoted;
    }
    backslashes = line[i] == L'\\' ? backslashes + 1 : 0;
    out += line[i];
  }
  return out;
}

/// A GUI program has no console: use the parent's for messages, unless they are redirected.
void useConsoleOfParent(std::FILE* stream, DWORD which) {
  const HANDLE given = GetStdHandle(which);
  const bool lost = given == nullptr || given == INVALID_HANDLE_VALUE;
  if (!lost) return;
  if (GetConsoleWindow() == nullptr && AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
  static_cast<void>(std::freopen("CONOUT$", "wb", stream));
}

}  // namespace

void prepareStreams() {
  useConsoleOfParent(stdout, STD_OUTPUT_HANDLE);
  useConsoleOfParent(stderr, STD_ERROR_HANDLE);
  for (std::FILE* const stream : {stdin, stdout, stderr}) {
    if (_fileno(stream) >= 0) _setmode(_fileno(stream), _O_BINARY);
  }
}

std::vector<std::string> processArguments(int, char**) {
  std::vector<std::string> arguments;
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(withFoldersClosed(GetCommandLineW()).c_str(), &count);
  for (int i = 1; words != nullptr && i < count; ++i) arguments.push_back(narrow(words[i]));
  LocalFree(words);
  return arguments;
}

bool errorIsTerminal() {
  DWORD mode = 0;
  const HANDLE error = handleOf(stderr);
  return GetConsoleMode(error, &mode) != 0 &&
         SetConsoleMode(error, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

bool writeText(std::FILE* stream, std::string_view utf8) {
  if (!isConsole(stream)) return std::fwrite(utf8.data(), 1, utf8.size(), stream) == utf8.size();
  // UTF-16 output does not depend on the console's code page.
  constexpr std::size_t kMost = 8192;
  const std::wstring text = wide(utf8);
  for (std::size_t done = 0; done < text.size();) {
    const auto count = static_cast<DWORD>(std::min(kMost, text.size() - done));
    DWORD written = 0;
    const BOOL shown =
        WriteConsoleW(handleOf(stream), text.data() + done, count, &written, nullptr);
    if (shown == 0 || written == 0) return false;
    done += written;
  }
  return true;
}

bool userSpeaksGerman() {
  const std::string_view language = environmentLanguage();
  if (!language.empty()) return language.starts_with("de");
  return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_GERMAN;
}

}  // namespace quillon::console
