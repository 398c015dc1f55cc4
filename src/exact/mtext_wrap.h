#pragma once

#include <functional>

#include "exact/canvas.h"
#include "exact/mtext_parser.h"

namespace quillon::exact {

/// What decides where the lines of a text break. Lengths are those of the text.
struct WrapSettings {
  double width = 0.0;        ///< that lines keep to; 0: none
  double letterWidth = 0.0;  ///< from letter to letter, in their heights
};

/// A line as it is drawn.
struct WrappedLine {
  TextSpan span;
  double height = 0.0;  ///< of its largest letters; 0: blank
  bool hasMixedHeights = false;
};

/// Hands on the lines of a text one by one, broken at blanks where they are too long. Words stay
/// whole. Ends early when the work is to end.
void forEachLine(const ParsedText& text, const TextEncoder& encoder, const WrapSettings& settings,
                 Canvas& canvas, const std::function<void(const WrappedLine&)>& take);

/// How wide letters are where nothing is known of them, in their heights.
double usualLetterWidth(double widthFactor);
/// The width at which a text has this number of lines; the usual one where none has.
double letterWidthFor(const ParsedText& text, const TextEncoder& encoder, double width,
                      double widthFactor, double lines, Canvas& canvas);

}  // namespace quillon::exact
