#include "windows/trap.h"

#include "errors/attempt.h"

namespace quillon::windows {

bool attempt(const AppContext& context, std::string_view module, std::string_view procedure,
             const std::function<void()>& step, unsigned allowed, errors::SourceLine line) {
  if (context.faults != nullptr) {
    return errors::attempt(*context.faults, module, procedure, step, allowed, line);
  }
  step();
  return true;
}

}  // namespace quillon::windows
