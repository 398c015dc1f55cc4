#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::console {

/// Access to the process and its terminal.

/// Prepares the standard streams: bytes are neither changed nor lost, and no file opened later
/// takes the place of a closed stream. Call before opening anything.
void prepareStreams();

/// The process's arguments without its name, UTF-8; pass on main()'s `argc` and `argv`.
std::vector<std::string> processArguments(int argc, char** argv);

/// True when standard error is a terminal that supports the escape sequences of a progress line.
bool errorIsTerminal();

/// Writes UTF-8 so that a terminal displays it correctly. False when not all of it could be
/// written.
bool writeText(std::FILE* stream, std::string_view utf8);

/// True when the user's language is German.
bool userSpeaksGerman();

}  // namespace quillon::console
