#include <windows.h>

#include <atomic>

#include "app/console/interrupt.h"
#include "app/console/wait_breaker.h"

namespace quillon::console {
namespace {

// The system calls the handler in a thread of its own, which can only reach static objects.
std::atomic<bool> interruptSeen{false};
std::atomic<HANDLE> waitingThread{nullptr};
const HANDLE interruptEvent = CreateEventW(nullptr, FALSE, FALSE, nullptr);

BOOL WINAPI onInterrupt(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  if (interruptSeen.exchange(true)) return FALSE;  // the system ends the program
  // A blocked read returns, so that a cancel is noticed at once.
  CancelSynchronousIo(waitingThread.load());
  SetEvent(interruptEvent);
  return TRUE;
}

struct System {
  using Thread = DWORD;

  static void waitForInterrupt() { WaitForSingleObject(interruptEvent, INFINITE); }
  static void stopWaiting() { SetEvent(interruptEvent); }
  static void wake(Thread thread) {
    const HANDLE handle = OpenThread(THREAD_TERMINATE, FALSE, thread);
    if (handle == nullptr) return;
    CancelSynchronousIo(handle);
    CloseHandle(handle);
  }
  static bool isSame(Thread a, Thread b) { return a == b; }
};

}  // namespace

void catchInterrupt() {
  HANDLE thread = nullptr;
  DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &thread, 0, FALSE,
                  DUPLICATE_SAME_ACCESS);
  waitingThread.store(thread);
  SetConsoleCtrlHandler(nullptr, FALSE);  // the parent may have disabled Ctrl-C
  SetConsoleCtrlHandler(onInterrupt, TRUE);
}

bool interrupted() { return interruptSeen.load(); }

struct WaitBreaker::State : Waker<System> {};

WaitBreaker::WaitBreaker() : state_(std::make_unique<State>()) {}
WaitBreaker::~WaitBreaker() = default;

WaitBreaker::Part::Part(WaitBreaker& breaker) : breaker_(breaker) {
  breaker_.state_->add(GetCurrentThreadId());
}
WaitBreaker::Part::~Part() { breaker_.state_->remove(GetCurrentThreadId()); }

}  // namespace quillon::console
