#pragma once

#include <string>
#include <vector>

namespace quillon::convert {

/// The layer names that a drawing declares, in file order, UTF-8, upper-cased as in the drawing's
/// records. If it declares none: the layers that its entities use, including those in blocks, in
/// order of first use. Empty for a drawing that is missing or not a text file. Throws ReadError, or
/// RunTimeError for damaged tables or blocks.
std::vector<std::string> layerScanDXF(const std::string& path);

}  // namespace quillon::convert
