#include <windows.h>

#include "app/window/display.h"

namespace quillon::window {
namespace {

/// Services and scheduled tasks run on an invisible desktop.
bool stationIsVisible() {
  USEROBJECTFLAGS flags{};
  const BOOL known = GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags,
                                               sizeof flags, nullptr);
  return known == 0 || (flags.dwFlags & WSF_VISIBLE) != 0;
}

bool windowOpens() {
  const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                      GetModuleHandleW(nullptr), nullptr);
  return window != nullptr && DestroyWindow(window) != 0;
}

}  // namespace

bool hasDisplay(int&, char**) { return stationIsVisible() && windowOpens(); }

}  // namespace quillon::window
