#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform.h"
#include "support/program_call.h"
#include "support/temp_folder.h"

namespace quillon::testing {

/// A program running in a child process. Standard input is a pipe, the other two streams are files
/// outside the program's working folder.
class RunningProgram {
 public:
  /// Exit code for a program that did not end by itself.
  static constexpr UINT kHung = 9999;

  explicit RunningProgram(const ProgramCall& call) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE input = nullptr;
    if (CreatePipe(&input, &input_, &inherited, 0) == 0) throw std::runtime_error("no pipe");
    SetHandleInformation(input_, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input;
    start.hStdOutput = create(streams_.path() / "output", inherited);
    start.hStdError = create(streams_.path() / "error", inherited);
    std::wstring line = quoted(wide(call.program));
    for (const std::string& word : call.arguments) line += L' ' + quoted(wide(word));
    std::wstring environment = environmentBlock(call.environment);
    // A process group of its own, so that Ctrl-Break does not reach the test.
    const auto begin = [&] {
      return CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE,
                            CREATE_NEW_PROCESS_GROUP | CREATE_UNICODE_ENVIRONMENT,
                            environment.data(), call.folder.empty() ? nullptr : call.folder.c_str(),
                            &start, &process_);
    };
    // Wine fails so now and then on a loaded machine; the next attempt succeeds.
    constexpr int kAttempts = 5;
    BOOL started = begin();
    DWORD error = GetLastError();
    for (int i = 1; started == 0 && error == ERROR_INTERNAL_ERROR && i < kAttempts; ++i) {
      Sleep(200);
      started = begin();
      error = GetLastError();
    }
    for (const HANDLE handle : {input, start.hStdOutput, start.hStdError}) CloseHandle(handle);
    if (started == 0) throw std::runtime_error("no process: " + std::to_string(error));
  }
  ~RunningProgram() {
    closeInput();
    if (process_.hProcess == nullptr) return;
    TerminateProcess(process_.hProcess, 1);
    wait();
  }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  void write(std::string_view bytes) const {
    while (!bytes.empty()) {
      DWORD written = 0;
      const auto count = static_cast<DWORD>(bytes.size());
      if (WriteFile(input_, bytes.data(), count, &written, nullptr) == 0) break;
      bytes.remove_prefix(written);
    }
  }
  void closeInput() {
    if (input_ != nullptr) CloseHandle(input_);
    input_ = nullptr;
  }
  void interrupt() const { GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, process_.dwProcessId); }

  ProgramResult finish() {
    closeInput();
    const auto code = static_cast<int>(wait());
    return {code, streams_.read("output"), streams_.read("error")};
  }

 private:
  static std::wstring wide(const std::string& utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).native();
  }
  static HANDLE create(const std::filesystem::path& path, SECURITY_ATTRIBUTES& attributes) {
    return CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &attributes, CREATE_ALWAYS, 0,
                       nullptr);
  }
  /// Quotes an argument so that the system's rules parse it back.
  static std::wstring quoted(const std::wstring& argument) {
    std::wstring out = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : argument) {
      if (c == L'"') out.append(backslashes + 1, L'\\');
      backslashes = c == L'\\' ? backslashes + 1 : 0;
      out += c;
    }
    return out.append(backslashes, L'\\') + L"\"";
  }
  /// The requested variables plus those that the system or its windows need.
  static std::wstring environmentBlock(const std::vector<std::string>& variables) {
    std::wstring block;
    for (const std::string& variable : variables) block += wide(variable) + L'\0';
    for (const wchar_t* const name :
         {L"SystemRoot", L"SystemDrive", L"TEMP", L"PATH", L"USERPROFILE", L"DISPLAY"}) {
      std::wstring value(32768, L'\0');
      value.resize(GetEnvironmentVariableW(name, value.data(), 32768));
      if (!value.empty()) block += std::wstring(name) + L"=" + value + L'\0';
    }
    return block + L'\0';
  }

  DWORD wait() {
    constexpr DWORD kLongest = 120'000;  // milliseconds; a program that hangs fails its test
    DWORD code = 0;
    if (WaitForSingleObject(process_.hProcess, kLongest) == WAIT_TIMEOUT) {
      TerminateProcess(process_.hProcess, kHung);
      WaitForSingleObject(process_.hProcess, INFINITE);
    }
    GetExitCodeProcess(process_.hProcess, &code);
    CloseHandle(process_.hProcess);
    CloseHandle(process_.hThread);
    process_ = {};
    return code;
  }

  TempFolder streams_;
  HANDLE input_ = nullptr;
  PROCESS_INFORMATION process_{};
};

}  // namespace quillon::testing
