#pragma once

#include <functional>
#include <string>

namespace quillon::headless {

/// Reads a list of paths, "-" from standard input, and passes each one on: one for each line, whose
/// end may be LF or CR LF, or with `nulSeparated` between NUL characters. Blank lines do not count.
/// Returns what is wrong with the list, or "". Stops at Ctrl-C.
std::string readPathList(const std::string& file, bool nulSeparated,
                         const std::function<void(const std::string&)>& take);

}  // namespace quillon::headless
