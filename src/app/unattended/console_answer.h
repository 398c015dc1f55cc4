#pragma once

#include <string>
#include <vector>

#include "texts/string_table.h"

namespace quillon::unattended {

/// The output for "--help" or "--version" among the process's arguments, in complete lines; "" when
/// neither is given.
std::string consoleAnswer(const std::vector<std::string>& arguments, const texts::Texts& texts);

/// Prints an answer to standard output and returns the exit code.
int printAnswer(const std::string& answer);

}  // namespace quillon::unattended
