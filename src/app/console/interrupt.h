#pragma once

#include <memory>

namespace quillon::console {

/// From now on Ctrl-C, or the system's wish that the program ends, sets a flag instead of ending
/// it; a second one ends it. A pipe without a reader becomes an error of writing.
void catchInterrupt();

/// True once that has happened.
bool interrupted();

/// Ends calls that would wait for ever, for a pipe that nobody writes to or reads, once the program
/// has been interrupted: such a call of a thread that takes part fails, as does each one after it,
/// as long as the object lives. The system tells one thread alone of Ctrl-C, and perhaps just
/// before that thread begins to wait. Needs catchInterrupt().
class WaitBreaker {
 public:
  WaitBreaker();
  ~WaitBreaker();
  WaitBreaker(const WaitBreaker&) = delete;
  WaitBreaker& operator=(const WaitBreaker&) = delete;

  /// The calling thread takes part as long as this lives.
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
