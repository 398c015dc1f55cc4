#include <windows.h>

#include <atomic>

#include "app/console/interrupt.h"

namespace quillon::console {
namespace {

// The system calls the handler in a thread of its own, which can reach nothing but statics.
std::atomic<bool> interruptSeen{false};
std::atomic<HANDLE> waitingThread{nullptr};

BOOL WINAPI onInterrupt(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  if (interruptSeen.exchange(true)) return FALSE;  // the system ends the program
  // A read that waits for a pipe ends, and the cancel is seen at once.
  CancelSynchronousIo(waitingThread.load());
  return TRUE;
}

}  // namespace

void catchInterrupt() {
  HANDLE thread = nullptr;
  DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &thread, 0, FALSE,
                  DUPLICATE_SAME_ACCESS);
  waitingThread.store(thread);
  SetConsoleCtrlHandler(nullptr, FALSE);  // a parent may have switched Ctrl-C off
  SetConsoleCtrlHandler(onInterrupt, TRUE);
}

bool interrupted() { return interruptSeen.load(); }

}  // namespace quillon::console
