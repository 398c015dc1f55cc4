#pragma once

#include <memory>

namespace quillon::console {

/// From now on Ctrl-C, or a request of the system to end such as SIGTERM, only sets a flag; a
/// second one ends the program. Writing to a pipe without a reader becomes an ordinary error.
void catchInterrupt();

/// True once the program has been interrupted.
bool interrupted();

/// Ends calls that would block forever, on a pipe without a writer or reader, once the program has
/// been interrupted: for as long as this object lives, every such call in a registered thread
/// fails. The system delivers Ctrl-C to only one thread, and possibly just before that thread
/// blocks. Requires catchInterrupt().
class WaitBreaker {
 public:
  WaitBreaker();
  ~WaitBreaker();
  WaitBreaker(const WaitBreaker&) = delete;
  WaitBreaker& operator=(const WaitBreaker&) = delete;

  /// Registers the calling thread for its lifetime.
  class Part {
   public:
    explicit Part(WaitBreaker& breaker);
    ~Part();
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

   private:
    WaitBreaker& breaker_;
  };

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace quillon::console
