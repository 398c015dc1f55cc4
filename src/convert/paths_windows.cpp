#include "convert/paths.h"

namespace quillon::convert {

// The system itself disregards case and takes both separators.

std::filesystem::path findExisting(std::string_view path) { return toPath(path); }

std::filesystem::path findForCreation(std::string_view path) { return toPath(path); }

bool namesHaveCase() { return false; }

}  // namespace quillon::convert
