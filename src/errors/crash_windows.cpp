#include <windows.h>

#include <array>
#include <atomic>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "errors/crash.h"
#include "errors/crash_protocol.h"

namespace quillon::errors {

struct CrashStack::Memory {};

// The room stays reserved as long as the thread lives.
CrashStack::CrashStack() {
  ULONG bytes = 65536;
  SetThreadStackGuarantee(&bytes);
}

CrashStack::~CrashStack() = default;

namespace {

using Event = std::unique_ptr<void, decltype([](HANDLE event) { CloseHandle(event); })>;

Event makeEvent() { return Event(CreateEventW(nullptr, FALSE, FALSE, nullptr)); }

/// A thread that does something when it is asked, on a stack of its own.
class Helper {
 public:
  explicit Helper(void (*work)())
      : thread_([this, work] {
          WaitForSingleObject(asked_.get(), INFINITE);
          if (!ending_.load()) work();
          SetEvent(done_.get());
        }) {}
  ~Helper() {
    ending_.store(true);
    SetEvent(asked_.get());
  }
  Helper(const Helper&) = delete;
  Helper& operator=(const Helper&) = delete;

  /// Waits until it has done its work; not for ever, as it may need a lock that the caller has.
  void ask() {
    constexpr DWORD kLongest = 10'000;  // milliseconds
    SetEvent(asked_.get());
    WaitForSingleObject(done_.get(), kLongest);
  }

 private:
  Event asked_ = makeEvent();
  Event done_ = makeEvent();
  std::atomic<bool> ending_{false};
  std::jthread thread_;
};

void reportOverflow();

}  // namespace

/// What a crash needs, allocated beforehand.
struct CrashReporting::State {
  State(FaultScribe& reporter, std::string text)
      : protocol(reporter, std::move(text)),
        folder(reporter.program().folder.wstring()),
        file(reporter.program().protocolFile().wstring()),
        shownNotice(wide(protocol.notice())) {}

  static std::wstring wide(const std::string& utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).native();
  }

  CrashProtocol protocol;
  std::wstring folder;
  std::wstring file;
  std::wstring shownNotice;  ///< what a console shows whatever its code page
  FixedSink sink;
  const CONTEXT* overflow = nullptr;  ///< where a stack was used up
  std::array<wchar_t, 4096> modulePath{};
  std::array<char, 1024> moduleName{};
  CrashStack stack;
  Helper forOverflows{reportOverflow};
};

namespace {

// A handler of a crash can reach nothing but static objects.
std::atomic<CrashReporting::State*> present{nullptr};

void writeAll(HANDLE file, std::string_view text) {
  DWORD written = 0;
  WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

void tell(HANDLE error, const CrashReporting::State& state) {
  DWORD written = 0;
  const auto length = static_cast<DWORD>(state.shownNotice.size());
  if (WriteConsoleW(error, state.shownNotice.c_str(), length, &written, nullptr) == 0) {
    writeAll(error, state.protocol.notice());
  }
}

/// The name of a module's file, UTF-8. It may lie in the state.
std::string_view nameOf(HMODULE module, CrashReporting::State& state) {
  auto& path = state.modulePath;
  const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
  std::wstring_view name(path.data(), length);
  name.remove_prefix(name.find_last_of(L'\\') + 1);
  auto& utf8 = state.moduleName;
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, name.data(), static_cast<int>(name.size()), utf8.data(),
                          static_cast<int>(utf8.size()), nullptr, nullptr);
  return {utf8.data(), static_cast<std::size_t>(size)};
}

void writeFrame(BacktraceWriter& out, DWORD64 address, CrashReporting::State& state) {
  constexpr DWORD kOfAddress =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE module = nullptr;
  if (GetModuleHandleExW(kOfAddress, reinterpret_cast<LPCWSTR>(address), &module) == 0) {
    return out.frame("", address);
  }
  out.frame(nameOf(module, state), address - reinterpret_cast<DWORD64>(module));
}

#ifdef __x86_64__

/// The calls that led to a place, which may be one of another thread that waits: what takes frames
/// of the calling thread alone would need room on a stack that is used up.
void writeBacktrace(CONTEXT place, CrashReporting::State& state) {
  constexpr int kMostFrames = 64;
  BacktraceWriter out(state.sink);
  for (int i = 0; i < kMostFrames && (i == 0 || place.Rip != 0); ++i) {
    writeFrame(out, place.Rip, state);
    DWORD64 module = 0;
    const PRUNTIME_FUNCTION function = RtlLookupFunctionEntry(place.Rip, &module, nullptr);
    if (function == nullptr) {  // it calls nothing, so its caller lies on top of the stack
      place.Rip = *reinterpret_cast<const DWORD64*>(place.Rsp);
      place.Rsp += sizeof place.Rip;
      continue;
    }
    void* handlerData = nullptr;
    DWORD64 frame = 0;
    RtlVirtualUnwind(UNW_FLAG_NHANDLER, module, place.Rip, function, &place, &handlerData, &frame,
                     nullptr);
  }
  out.end();
}

#else

void writeBacktrace(const CONTEXT&, CrashReporting::State& state) {
  BacktraceWriter out(state.sink);
  out.unknown();
  out.end();
}

#endif

/// Only the first crash is reported; one of the report itself ends the program.
void report(std::string_view reason, std::uint64_t code, const CONTEXT& place) {
  CrashReporting::State* const state = present.exchange(nullptr);
  if (state == nullptr) return;
  state->protocol.write(reason, code, static_cast<std::int64_t>(std::time(nullptr)), state->sink);
  CreateDirectoryW(state->folder.c_str(), nullptr);
  const HANDLE file = CreateFileW(state->file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
  const HANDLE target = file == INVALID_HANDLE_VALUE ? error : file;
  writeAll(target, state->sink.text());
  if (target == file) tell(error, *state);
  // A stack in disorder may be a crash once more, so it is looked at when all else is written.
  state->sink.clear();
  writeBacktrace(place, *state);
  writeAll(target, state->sink.text());
  if (target == file) CloseHandle(file);
}

LONG WINAPI onException(EXCEPTION_POINTERS* exception) {
  report("EXCEPTION", exception->ExceptionRecord->ExceptionCode, *exception->ContextRecord);
  return EXCEPTION_CONTINUE_SEARCH;
}

/// In the thread of the helper; the thread whose stack is used up waits.
void reportOverflow() {
  const CrashReporting::State* const state = present.load();
  if (state != nullptr) report("EXCEPTION", EXCEPTION_STACK_OVERFLOW, *state->overflow);
}

/// Where a stack is used up there may be room for little more than this: looking for whoever
/// handles the exception already takes too much, so the program ends here, as it would have done.
LONG WINAPI onOverflow(EXCEPTION_POINTERS* exception) {
  if (exception->ExceptionRecord->ExceptionCode != EXCEPTION_STACK_OVERFLOW) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  CrashReporting::State* const state = present.load();
  if (state == nullptr) return EXCEPTION_CONTINUE_SEARCH;
  state->overflow = exception->ContextRecord;
  state->forOverflows.ask();
  TerminateProcess(GetCurrentProcess(), EXCEPTION_STACK_OVERFLOW);
  return EXCEPTION_CONTINUE_SEARCH;
}

// The handler of overflows that is in force.
std::atomic<void*> overflowHandler{nullptr};

extern "C" void onAbort(int number) {
  CONTEXT place = {};
  RtlCaptureContext(&place);
  report("SIGABRT", static_cast<std::uint64_t>(number), place);
}

}  // namespace

// An exception that nobody traps ends in an abort, whose signal is reported.
CrashReporting::CrashReporting(FaultScribe& faults, std::string notice)
    : state_(std::make_unique<State>(faults, std::move(notice))) {
  present.store(state_.get());
  SetUnhandledExceptionFilter(onException);
  overflowHandler.store(AddVectoredExceptionHandler(1, onOverflow));
  std::signal(SIGABRT, onAbort);
}

CrashReporting::~CrashReporting() {
  std::signal(SIGABRT, SIG_DFL);
  RemoveVectoredExceptionHandler(overflowHandler.exchange(nullptr));
  SetUnhandledExceptionFilter(nullptr);
  present.store(nullptr);
}

}  // namespace quillon::errors
