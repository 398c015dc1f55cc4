#pragma once

#include <functional>
#include <string_view>

#include "errors/fault_scribe.h"
#include "errors/source_line.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// Runs a step of a window's procedure, as errors::attempt does, with the program's reporter.
bool attempt(const AppContext& context, std::string_view module, std::string_view procedure,
             const std::function<void()>& step, unsigned allowed = errors::kWholeProcedure,
             errors::SourceLine line = __builtin_LINE());

/// A slot that traps what it throws: no error may pass through Qt. `module` and `procedure` are
/// static texts.
template <typename Slot>
auto trapped(const AppContext& context, std::string_view module, std::string_view procedure,
             Slot slot, errors::SourceLine line = __builtin_LINE()) {
  return [&context, module, procedure, slot, line] {
    attempt(context, module, procedure, slot, errors::kWholeProcedure, line);
  };
}

}  // namespace quillon::windows
