#pragma once

#include "preview/palette.h"

namespace quillon::preview {

// Colours of what a picture shows beside the layers of a script. All of them can be told from the
// background; the two kinds of differences can be told apart by everybody.

/// A drawing on its own, in one colour.
Colour drawingColour(Theme theme);
/// A drawing below what was made of it.
Colour paleDrawingColour(Theme theme);
/// What only the drawing has.
Colour onlyDrawingColour(Theme theme);
/// What only the result has.
Colour onlyResultColour(Theme theme);
/// Rings around losses.
Colour warningColour(Theme theme);
/// Of what the user points at or measures.
Colour markColour(Theme theme);

}  // namespace quillon::preview
