#pragma once

#include <string>
#include <string_view>

#include "base/run_time_error.h"
#include "texts/string_table.h"

namespace quillon::texts {

/// Explains a run-time error and what to do about it, with the drawing (UTF-8; may be empty) and
/// the line where known.
std::string faultText(const base::RunTimeError& error, std::string_view drawing,
                      const Texts& texts);

/// The system's text for this errno value.
std::string reasonText(int reason, const Texts& texts);

std::string outOfMemoryText(const Texts& texts);

}  // namespace quillon::texts
