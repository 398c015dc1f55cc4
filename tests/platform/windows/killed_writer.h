#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace quillon::testing {

/// Leaves in a folder what a writer leaves that is killed: a file with the number of a process that
/// runs no longer.
inline void killAWriter(const std::filesystem::path& folder) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  std::wstring line = L"cmd.exe /c exit";
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                     nullptr, &start, &process) == 0) {
    throw std::runtime_error("no process");
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  CloseHandle(process.hThread);
  // Its handle stays open as long as the tests run, so that no other process gets its number.
  const std::string name = ".quillon-" + std::to_string(process.dwProcessId) + "-17-1.tmp";
  std::ofstream(folder / name) << "half of it";
}

}  // namespace quillon::testing
