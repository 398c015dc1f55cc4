#include <windows.h>

#include <string>

#include "files/system_folders.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

std::wstring variable(const wchar_t* name) {
  const DWORD size = GetEnvironmentVariableW(name, nullptr, 0);
  std::wstring value(size, L'\0');
  if (size > 0) value.resize(GetEnvironmentVariableW(name, value.data(), size));
  return value;
}

/// A folder in one spelling, with a trailing separator.
std::wstring spelling(std::wstring folder) {
  for (wchar_t& c : folder) c = c == L'/' ? L'\\' : c;
  if (!folder.ends_with(L'\\')) folder += L'\\';
  CharUpperBuffW(folder.data(), static_cast<DWORD>(folder.size()));
  return folder;
}

}  // namespace

fs::path executableFolder() {
  constexpr DWORD kLongestPath = 32768;
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
  return fs::path(path).parent_path();
}

bool mayWriteIn(const fs::path& folder) {
  // Permissions of a folder say little here; only creating a file in it is a reliable test.
  const std::wstring name = L".quillon-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                            std::to_wstring(GetCurrentThreadId()) + L".tmp";
  const HANDLE file =
      CreateFileW((folder / name).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseHandle(file);
  return true;
}

bool isSystemFolder(const fs::path& folder) {
  for (const wchar_t* const name : {L"ProgramFiles", L"ProgramFiles(x86)", L"ProgramW6432"}) {
    const std::wstring root = variable(name);
    if (!root.empty() && spelling(folder.native()).starts_with(spelling(root))) return true;
  }
  return false;
}

fs::path configurationFolder() {
  const std::wstring home = variable(L"APPDATA");
  return home.empty() ? fs::path() : fs::path(home) / L"Quillon";
}

}  // namespace quillon::files
