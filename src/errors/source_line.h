#pragma once

namespace quillon::errors {

/// The line of the program that calls a function, when it is the default of a parameter:
/// `SourceLine line = __builtin_LINE()`. std::source_location is not everywhere yet.
using SourceLine = int;

}  // namespace quillon::errors
