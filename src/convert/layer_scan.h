#pragma once

#include <string>
#include <vector>

namespace quillon::convert {

/// The names of the layers that a drawing declares, in the order of the file, UTF-8, in upper case
/// as the drawing keeps them. Of a drawing that declares none, the layers that its entities use, in
/// blocks too, in the order of their first use. Nothing for a drawing that is missing or not a text
/// file. Throws ReadError, or RunTimeError for damaged tables or blocks.
std::vector<std::string> layerScanDXF(const std::string& path);

}  // namespace quillon::convert
