#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::console {

/// What the program asks of the process that it runs in, and of its terminal.

/// Makes the standard streams ready: their bytes are neither changed nor lost, and no file that the
/// program opens takes the place of a closed one. To be called before anything is opened.
void prepareStreams();

/// The arguments of the process without its name, UTF-8; `argc` and `argv` are those of main().
std::vector<std::string> processArguments(int argc, char** argv);

/// True when standard error is a terminal that understands the sequences of a progress line.
bool errorIsTerminal();

/// Writes UTF-8 so that a terminal shows it. False when not all of it could be written.
bool writeText(std::FILE* stream, std::string_view utf8);

/// True when the user's language is German.
bool userSpeaksGerman();

}  // namespace quillon::console
