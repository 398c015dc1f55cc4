#pragma once

#include <string_view>

#include "eagle/recording.h"
#include "preview/stroke_font.h"

namespace quillon::preview {

/// The strokes of a recorded text where they are in the drawing: at its point, on the side of it
/// that its alignment says, turned and mirrored as EAGLE does. EAGLE turns texts that would stand
/// upside down within the box that they take, unless they spin.
Strokes letteringOf(const eagle::RecordedText& text, std::string_view utf8);

}  // namespace quillon::preview
