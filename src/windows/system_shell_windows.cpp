#include <windows.h>

#include "windows/system_shell.h"
// The order matters.
#include <shellapi.h>

#include <string>

namespace quillon::windows {
namespace {

/// Null for an empty text, meaning "none" to the system.
const wchar_t* textOrNull(const std::wstring& text) {
  return text.empty() ? nullptr : text.c_str();
}

}  // namespace

int runSystemShell(const ShellRequest& request, QWidget* owner) {
  const std::wstring file = request.file.toStdWString();
  const std::wstring parameters = request.parameters.toStdWString();
  const std::wstring folder = request.folder.toStdWString();
  const std::wstring operation = request.operation.toStdWString();
  const auto window = owner == nullptr ? nullptr : reinterpret_cast<HWND>(owner->winId());
  const HINSTANCE result =
      ShellExecuteW(window, textOrNull(operation), file.c_str(), textOrNull(parameters),
                    textOrNull(folder), request.showCommand);
  return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

}  // namespace quillon::windows
