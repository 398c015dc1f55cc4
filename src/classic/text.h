#pragma once

#include <string>

#include "classic/context.h"
#include "dxf/encoding.h"

namespace quillon::classic {

/// Removes MTEXT formatting codes: pieces from a backslash to the next semicolon, each wherever it
/// occurs. A code without a semicolon behind it stays.
std::string stripFormatCodes(std::string text);

/// A text at a point, its rotation in degrees reduced to R0 or R90. The cleaned text is left in
/// `text`, which is in the drawing's encoding.
void writeText(Context& context, double x, double y, double rotation, double height,
               std::string& text, dxf::Encoding encoding, int layer);

}  // namespace quillon::classic
