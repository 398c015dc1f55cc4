#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "convert/host.h"
#include "dxf/run_time_error.h"
#include "ui/resources/string_table.h"

namespace quillon::convert {

/// A text from a file for a message: UTF-8 in, control characters as escapes, long ones cut.
std::string quotable(std::string_view utf8);

/// What a run-time error means and what to do about it, with file and line (0: not known).
std::string faultText(const dxf::RunTimeError& error, std::string_view file, std::size_t line,
                      const resources::Texts& texts);

/// The message of the error handler: the script could not be made. `detail` says why.
Message scriptError(std::string_view scriptFile, std::string detail, const resources::Texts& texts);

}  // namespace quillon::convert
