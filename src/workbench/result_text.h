#pragma once

#include <string>
#include <vector>

#include "convert/driver.h"
#include "texts/string_table.h"

namespace quillon::workbench {

/// A path as the lines below have it: without characters that would break them.
std::string resultPath(const std::string& path);

/// What to type in EAGLE to run the script; "" for a path that cannot be typed.
std::string scriptCommand(const convert::ConversionResult& result);

/// What came out of a conversion, what was left out, and what to type, a line each. `command` may
/// be "".
std::vector<std::string> resultLines(const convert::ConversionResult& result,
                                     const std::string& command, const texts::Texts& texts);

}  // namespace quillon::workbench
