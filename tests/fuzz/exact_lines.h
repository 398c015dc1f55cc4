#pragma once

#include <string>
#include <string_view>

namespace quillon::fuzz {

/// What is wrong with a script by the exact rules; "" when nothing is. Every line is one command
/// with its semicolon or a comment, its numbers are finite and its quotes are closed: nothing in a
/// drawing may become a command of its own.
std::string faultOfExactLines(std::string_view script);

}  // namespace quillon::fuzz
