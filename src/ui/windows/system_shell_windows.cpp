#include <windows.h>

#include "ui/windows/system_shell.h"
// In this order.
#include <shellapi.h>

namespace quillon::ui {
namespace {

/// Null for an empty text, which the system takes for "none".
const char* textOrNull(const QByteArray& text) { return text.isEmpty() ? nullptr : text.data(); }

}  // namespace

int runSystemShell(const ShellRequest& request, QWidget* owner) {
  const QByteArray file = request.file.toLocal8Bit();
  const QByteArray parameters = request.parameters.toLocal8Bit();
  const QByteArray folder = request.folder.toLocal8Bit();
  const QByteArray operation = request.operation.toLocal8Bit();
  const auto window = owner == nullptr ? nullptr : reinterpret_cast<HWND>(owner->winId());
  const HINSTANCE result =
      ShellExecuteA(window, textOrNull(operation), file.data(), textOrNull(parameters),
                    textOrNull(folder), request.showCommand);
  return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

}  // namespace quillon::ui
