#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "geometry/point.h"

namespace quillon::preview {

/// Lines drawn with a round pen: `points` of all strokes, and for each one where it ends. A stroke
/// of one point is a dot.
struct Strokes {
  std::vector<geometry::Point> points;
  std::vector<std::size_t> ends;
};

// A font of lines as EAGLE's vector font is one. Lengths are in heights of a capital letter. All
// letters are equally wide, at the mean width of EAGLE's, so that texts end where those of a board
// do, but for a letter or two.

/// From one letter to the next.
inline constexpr double kLetterPitch = 0.85;
/// The width of the pen, as EAGLE has it for a ratio of 8.
inline constexpr double kPenWidth = 0.08;

/// The strokes of a text, with the baseline on the x axis and the first letter at 0. Letters that
/// the font does not have become boxes. Malformed UTF-8 becomes boxes as well.
Strokes strokesOf(std::string_view utf8);

/// The width of a text: from the first letter to the end of the last one.
double widthOf(std::string_view utf8);

}  // namespace quillon::preview
