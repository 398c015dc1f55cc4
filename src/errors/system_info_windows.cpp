#include <windows.h>

#include "errors/system_info.h"

namespace quillon::errors {
namespace {

const char* platformName(DWORD id) {
  switch (id) {
    case VER_PLATFORM_WIN32_NT:
      return "Windows NT";
    case VER_PLATFORM_WIN32_WINDOWS:
      return "Windows 95";
    case VER_PLATFORM_WIN32s:
      return "Win32s";
    default:
      return "";
  }
}

}  // namespace

SystemInfo systemInfo() {
  OSVERSIONINFOA version = {};
  version.dwOSVersionInfoSize = sizeof version;
  if (GetVersionExA(&version) == 0) return {};
  SystemInfo info;
  info.platform = platformName(version.dwPlatformId);
  info.version =
      std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion);
  // Windows 95 keeps its version in the upper half.
  info.build = std::to_string(version.dwPlatformId == VER_PLATFORM_WIN32_NT
                                  ? version.dwBuildNumber
                                  : version.dwBuildNumber & 0xFFFFU);
  info.servicePack = LpstrToString({version.szCSDVersion, sizeof version.szCSDVersion});
  return info;
}

}  // namespace quillon::errors
