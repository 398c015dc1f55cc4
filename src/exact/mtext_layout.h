#pragma once

#include <span>

#include "exact/canvas.h"
#include "exact/text_layout.h"
#include "exact/texts.h"

namespace quillon::exact {

/// Draws a text of several lines: `text.at`, `height` and the like are in the coordinates of `map`,
/// in which its letters run as `lettering` says. The angle in `text` is not used. `changes` are
/// what the text suffers besides.
void drawLines(const Item& item, const ParagraphText& text, Lettering lettering, const Affine& map,
               Canvas& canvas, std::span<const LossRule> changes = {});

}  // namespace quillon::exact
