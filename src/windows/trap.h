#pragma once

#include <functional>
#include <string_view>

#include "errors/fault_scribe.h"
#include "errors/source_line.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// Runs a step of a window's procedure via errors::attempt, with the program's reporter.
bool attempt(const AppContext& context, std::string_view module, std::string_view procedure,
             const std::function<void()>& step, unsigned allowed = errors::kWholeProcedure,
             errors::SourceLine line = __builtin_LINE());

/// Wraps a slot so that it traps exceptions, as none may pass through Qt. `module` and `procedure`
/// must be static texts.
template <typename Slot>
auto trapped(const AppContext& context, std::string_view module, std::string_view procedure,
             Slot slot, errors::SourceLine line = __builtin_LINE()) {
  return [&context, module, procedure, slot, line] {
    attempt(context, module, procedure, slot, errors::kWholeProcedure, line);
  };
}

}  // namespace quillon::windows
