#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace quillon::testing {

/// Leaves a killed writer's temporary file in a folder: one with the id of a process that has
/// ended.
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
  // Keep the handle open while the tests run, so that no other process gets the same id.
  const std::string name = ".quillon-" + std::to_string(process.dwProcessId) + "-17-1.tmp";
  std::ofstream(folder / name) << "half of it";
}

}  // namespace quillon::testing
