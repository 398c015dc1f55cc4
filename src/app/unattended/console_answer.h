#pragma once

#include <string>
#include <vector>

#include "texts/string_table.h"

namespace quillon::unattended {

/// What "--help" or "--version" among the arguments of the process asks to be printed, whole lines;
/// "" when neither is there.
std::string consoleAnswer(const std::vector<std::string>& arguments, const texts::Texts& texts);

/// Prints an answer to standard output; the result is the exit code.
int printAnswer(const std::string& answer);

}  // namespace quillon::unattended
