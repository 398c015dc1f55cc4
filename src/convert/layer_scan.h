#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dxf/text_source.h"

namespace quillon::convert {

/// The layer names that a drawing declares, in file order, UTF-8, upper-cased as in the drawing's
/// records. If it declares none: the layers that its entities use, including those in blocks, in
/// order of first use. Empty for a drawing that is missing or not a text file. Throws ReadError, or
/// RunTimeError for damaged tables or blocks.
std::vector<std::string> layerScanDXF(const std::string& path);

/// The same of a drawing's text, wherever that stands. What is known when `cancelled` returns true
/// is the result then.
std::vector<std::string> layersOfText(dxf::TextSource& text,
                                      const std::function<bool()>& cancelled);

}  // namespace quillon::convert
