#include <windows.h>

#include <atomic>
#include <csignal>
#include <ctime>
#include <memory>

#include "errors/crash.h"
#include "errors/crash_protocol.h"

namespace quillon::errors {
/// What a crash needs, allocated beforehand.
struct CrashReporting::State {
  State(FaultScribe& reporter, std::string text)
      : protocol(reporter, std::move(text)),
        folder(reporter.program().folder.wstring()),
        file(reporter.program().protocolFile().wstring()) {}

  CrashProtocol protocol;
  std::wstring folder;
  std::wstring file;
  FixedSink sink;
  CrashStack stack;
};

namespace {

// A handler of a crash can reach nothing but static objects.
std::atomic<CrashReporting::State*> present{nullptr};

void writeAll(HANDLE file, std::string_view text) {
  DWORD written = 0;
  WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

/// Only the first crash is reported; one of the report itself ends the program.
void report(std::string_view reason, std::uint64_t code) {
  CrashReporting::State* const state = present.exchange(nullptr);
  if (state == nullptr) return;
  state->protocol.write(reason, code, static_cast<std::int64_t>(std::time(nullptr)), state->sink);
  CreateDirectoryW(state->folder.c_str(), nullptr);
  const HANDLE file = CreateFileW(state->file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
  if (file == INVALID_HANDLE_VALUE) return writeAll(error, state->sink.text());
  writeAll(file, state->sink.text());
  CloseHandle(file);
  writeAll(error, state->protocol.notice());
}

LONG WINAPI onException(EXCEPTION_POINTERS* exception) {
  report("EXCEPTION", exception->ExceptionRecord->ExceptionCode);
  return EXCEPTION_CONTINUE_SEARCH;
}

extern "C" void onAbort(int number) { report("SIGABRT", static_cast<std::uint64_t>(number)); }

}  // namespace

// The system keeps that much of the thread's own stack for the time after an overflow.
CrashStack::CrashStack() {
  constexpr ULONG kReserve = 65536;
  ULONG reserve = kReserve;
  SetThreadStackGuarantee(&reserve);
}

CrashStack::~CrashStack() = default;

// An exception that nobody traps ends in an abort, whose signal is reported.
CrashReporting::CrashReporting(FaultScribe& faults, std::string notice)
    : state_(std::make_unique<State>(faults, std::move(notice))) {
  present.store(state_.get());
  SetUnhandledExceptionFilter(onException);
  std::signal(SIGABRT, onAbort);
}

CrashReporting::~CrashReporting() {
  std::signal(SIGABRT, SIG_DFL);
  SetUnhandledExceptionFilter(nullptr);
  present.store(nullptr);
}

}  // namespace quillon::errors
