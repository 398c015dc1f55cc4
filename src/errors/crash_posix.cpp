#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <memory>
#include <new>

#include "base/bits.h"
#include "errors/crash.h"
#include "errors/crash_protocol.h"

// Only glibc tells where a module was loaded to.
#if defined(__GLIBC__)
#include <link.h>
#include <unwind.h>
#define QUILLON_BACKTRACE
#endif

namespace quillon::errors {
namespace {

struct CrashSignal {
  int number;
  std::string_view name;
};

constexpr std::array<CrashSignal, 5> kSignals = {{{SIGSEGV, "SIGSEGV"},
                                                  {SIGBUS, "SIGBUS"},
                                                  {SIGFPE, "SIGFPE"},
                                                  {SIGILL, "SIGILL"},
                                                  {SIGABRT, "SIGABRT"}}};
constexpr std::size_t kStackSize = 65536;

}  // namespace

struct CrashStack::Memory {
  Memory() {}  // without values, so that the system gives no memory to what is never needed
  std::array<char, kStackSize> stack;
  stack_t before{};
};

// Where memory is short, a thread works without.
CrashStack::CrashStack() : memory_(new (std::nothrow) Memory) {
  if (memory_ == nullptr) return;
  stack_t stack = {};
  stack.ss_sp = memory_->stack.data();
  stack.ss_size = kStackSize;
  sigaltstack(&stack, &memory_->before);
}

CrashStack::~CrashStack() {
  if (memory_ != nullptr) sigaltstack(&memory_->before, nullptr);
}

/// What a crash needs, allocated beforehand.
struct CrashReporting::State {
  State(FaultScribe& reporter, std::string text)
      : protocol(reporter, std::move(text)),
        folder(reporter.program().folder.string()),
        file(reporter.program().protocolFile().string()) {}

  CrashProtocol protocol;
  std::string folder;
  std::string file;
  FixedSink sink;
  CrashStack stack;
};

namespace {

// A signal handler can reach nothing but static objects.
std::atomic<CrashReporting::State*> present{nullptr};
static_assert(std::atomic<CrashReporting::State*>::is_always_lock_free);

void writeAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(file, text.data(), text.size());
    if (count <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

#ifdef QUILLON_BACKTRACE

constexpr std::size_t kMostFrames = 64;

/// An address, and in which module it is.
struct Place {
  std::uintptr_t address = 0;
  const char* module = "";
  std::uintptr_t moved = 0;  ///< by how much the module stands higher than in its file
};

int findModule(dl_phdr_info* info, std::size_t, void* to) {
  Place& place = *static_cast<Place*>(to);
  for (std::size_t i = 0; i < info->dlpi_phnum; ++i) {
    const auto& part = info->dlpi_phdr[i];
    if (part.p_type != PT_LOAD) continue;
    if (place.address - (info->dlpi_addr + part.p_vaddr) >= part.p_memsz) continue;
    const bool isProgram = info->dlpi_name == nullptr || *info->dlpi_name == '\0';
    place.module = isProgram ? program_invocation_name : info->dlpi_name;
    place.moved = info->dlpi_addr;
    return 1;
  }
  return 0;
}

/// The offset is the one in the module's file, wherever the module was loaded to. A program that is
/// static as a whole has a module too, though dladdr() would not find it.
void writeFrame(BacktraceWriter& out, const void* address) {
  Place place{reinterpret_cast<std::uintptr_t>(address)};
  ::dl_iterate_phdr(findModule, &place);
  out.frame(place.module, place.address - place.moved);
}

struct Frames {
  std::array<const void*, kMostFrames> addresses{};
  std::size_t count = 0;
};

_Unwind_Reason_Code addFrame(_Unwind_Context* context, void* to) {
  auto& frames = *static_cast<Frames*>(to);
  if (frames.count == frames.addresses.size()) return _URC_END_OF_STACK;
  frames.addresses[frames.count++] =
      base::bitCast<const void*>(std::uintptr_t{_Unwind_GetIP(context)});
  return _URC_NO_REASON;
}

/// By the unwinder that exceptions use, which is in the program already. backtrace() would load it
/// as a library of its own, which the handler of a crash may not, and which takes as long as the
/// conversion of a small drawing where it is done beforehand.
void writeBacktrace(ProtocolSink& sink) {
  Frames frames;
  _Unwind_Backtrace(addFrame, &frames);
  BacktraceWriter out(sink);
  for (std::size_t i = 0; i < frames.count; ++i) writeFrame(out, frames.addresses[i]);
  out.end();
}

#else

void writeBacktrace(ProtocolSink& sink) {
  BacktraceWriter out(sink);
  out.unknown();
  out.end();
}

#endif

/// Only the first crash is reported; one of the report itself ends the program.
void report(std::string_view reason, int code) {
  CrashReporting::State* const state = present.exchange(nullptr);
  if (state == nullptr) return;
  state->protocol.write(reason, static_cast<std::uint64_t>(code), ::time(nullptr), state->sink);
  ::mkdir(state->folder.c_str(), S_IRWXU);
  const int file = ::open(state->file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC,
                          S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH);
  const int target = file >= 0 ? file : STDERR_FILENO;
  writeAll(target, state->sink.text());
  if (file >= 0) writeAll(STDERR_FILENO, state->protocol.notice());
  // A stack in disorder may be a crash once more, so it is looked at when all else is written.
  state->sink.clear();
  writeBacktrace(state->sink);
  writeAll(target, state->sink.text());
  if (file >= 0) ::close(file);
}

extern "C" void onCrash(int number) {
  for (const CrashSignal& known : kSignals) {
    if (known.number == number) report(known.name, number);
  }
  std::signal(number, SIG_DFL);
  ::raise(number);
}

void setHandlers(bool on) {
  struct sigaction action = {};
  sigemptyset(&action.sa_mask);
  action.sa_flags = on ? SA_ONSTACK : 0;
  action.sa_handler = on ? onCrash : SIG_DFL;
  for (const CrashSignal& known : kSignals) sigaction(known.number, &action, nullptr);
}

}  // namespace

// An exception that nobody traps ends in an abort, whose signal is reported.
CrashReporting::CrashReporting(FaultScribe& faults, std::string notice)
    : state_(std::make_unique<State>(faults, std::move(notice))) {
  present.store(state_.get());
  setHandlers(true);
}

CrashReporting::~CrashReporting() {
  setHandlers(false);
  present.store(nullptr);
}

}  // namespace quillon::errors
