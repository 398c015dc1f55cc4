#pragma once

#include <string>
#include <vector>

namespace quillon::convert {

/// The names of the layers that a drawing declares, in the order of the file, UTF-8, in
/// upper case as the drawing keeps them. Nothing for a
/// drawing that is missing or no text. Throws ReadError, or RunTimeError for damaged tables.
std::vector<std::string> layerScanDXF(const std::string& path);

}  // namespace quillon::convert
