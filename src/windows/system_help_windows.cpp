#include <windows.h>

#include <QDir>
#include <QFileInfo>

#include "windows/system_help.h"

namespace quillon::windows {
namespace {

using ShowHelp = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

constexpr UINT kHelpContext = 0x0F;

/// HtmlHelpW, which newer systems may lack. Its library stays loaded because its windows outlive
/// the call.
ShowHelp findHtmlHelp() {
  const HMODULE library = LoadLibraryW(L"hhctrl.ocx");
  if (library == nullptr) return nullptr;
  // Via a generic function pointer, which may be cast to any other.
  const auto address = reinterpret_cast<void (*)()>(GetProcAddress(library, "HtmlHelpW"));
  return reinterpret_cast<ShowHelp>(address);
}

}  // namespace

bool showSystemHelp(const QString& folder, int contextId, QWidget* owner) {
  const QString path = QDir::toNativeSeparators(folder + "/Larkspur.chm");
  if (!QFileInfo(path).isFile()) return false;
  const ShowHelp htmlHelp = findHtmlHelp();
  if (htmlHelp == nullptr) return false;
  const auto window = owner == nullptr ? nullptr : reinterpret_cast<HWND>(owner->winId());
  return htmlHelp(window, path.toStdWString().c_str(), kHelpContext,
                  static_cast<DWORD_PTR>(contextId)) != nullptr;
}

}  // namespace quillon::windows
