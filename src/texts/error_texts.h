#pragma once

#include <string>
#include <string_view>

#include "base/run_time_error.h"
#include "texts/string_table.h"

namespace quillon::texts {

/// What a run-time error means and what to do about it, with the drawing (UTF-8; may be empty) and
/// its line where they are known.
std::string faultText(const base::RunTimeError& error, std::string_view drawing,
                      const Texts& texts);

/// The system's reason with this number (errno).
std::string reasonText(int reason, const Texts& texts);

std::string outOfMemoryText(const Texts& texts);

}  // namespace quillon::texts
