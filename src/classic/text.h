#pragma once

#include <string>
#include <string_view>

#include "base/encoding.h"
#include "classic/context.h"

namespace quillon::classic {

/// A text at a point, its rotation in degrees reduced to R0 or R90. The cleaned text is returned in
/// `text`, in the drawing's encoding. Control characters other than tabs become blanks. Nothing is
/// written after a cancel.
void writeText(Context& context, double x, double y, double rotation, double height,
               std::string& text, base::Encoding encoding, int layer);

/// The only directions of texts: 0 or 90 degrees, for a rotation in degrees.
int textDegrees(double rotation);

/// Whether a text has characters that are taken for others.
bool hasMistakenCharacter(std::string_view text, base::Encoding encoding);

}  // namespace quillon::classic
