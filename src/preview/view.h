#pragma once

#include "geometry/box.h"

namespace quillon::preview {

/// What a picture shows of the plane, in millimetres, and how large things are that have a size on
/// paper alone.
struct View {
  geometry::Box frame;      ///< all of the picture
  geometry::Box drawing;    ///< what is drawn; never empty
  double hairline = 0.0;    ///< width of lines that have none
  double noteHeight = 0.0;  ///< of letters beside the drawing

  double width() const { return frame.high.x - frame.low.x; }
  double height() const { return frame.high.y - frame.low.y; }
};

/// A view with a margin around a drawing and room for notes below. An empty drawing gives a view of
/// the origin.
View viewOf(const geometry::Box& drawing);

/// The length of a scale bar for a picture of this width: 1, 2 or 5 times a power of ten, and about
/// a sixth of it.
double scaleBarLength(double width);

}  // namespace quillon::preview
