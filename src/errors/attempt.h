#pragma once

#include <functional>
#include <string_view>

#include "errors/fault_scribe.h"
#include "errors/source_line.h"

namespace quillon::errors {

/// Carries out a step of a procedure, registered in the call stack. What it throws is trapped here
/// and reported under the names given (static texts), and the step is run again if the user wants
/// so. True to go on after the step: it succeeded, or the user resumes. False to leave the
/// procedure; the user may have chosen to end the program, which the reporter then knows.
bool attempt(FaultScribe& faults, std::string_view module, std::string_view procedure,
             const std::function<void()>& step, unsigned allowed = kEveryContinuation,
             SourceLine line = __builtin_LINE());

}  // namespace quillon::errors
