#include "preview/view.h"

#include <algorithm>
#include <cmath>

namespace quillon::preview {

View viewOf(const geometry::Box& drawing) {
  constexpr double kShareOfHairline = 1.0 / 800.0;
  constexpr double kShareOfMargin = 0.04;
  constexpr double kShareOfNotes = 0.018;
  constexpr double kLeastSide = 0.01;  // a dot has a picture too
  View view;
  view.drawing = drawing;
  if (drawing.empty()) view.drawing = {{0.0, 0.0}, {1.0, 1.0}};
  const double side = std::max({view.drawing.high.x - view.drawing.low.x,
                                view.drawing.high.y - view.drawing.low.y, kLeastSide});
  const double margin = side * kShareOfMargin;
  view.hairline = side * kShareOfHairline;
  view.noteHeight = side * kShareOfNotes;
  view.frame.low = {view.drawing.low.x - margin,
                    view.drawing.low.y - 2.0 * margin - view.noteHeight};
  view.frame.high = {view.drawing.high.x + margin, view.drawing.high.y + margin};
  // Room for the bar and the size side by side.
  const double least = 0.6 * side;
  const double lacking = least - view.width();
  if (lacking > 0.0) {
    view.frame.low.x -= lacking / 2.0;
    view.frame.high.x += lacking / 2.0;
  }
  return view;
}

double scaleBarLength(double width) {
  const double wanted = width / 6.0;
  const double power = std::pow(10.0, std::floor(std::log10(wanted)));
  for (const double digit : {5.0, 2.0}) {
    if (digit * power <= wanted) return digit * power;
  }
  return power;
}

}  // namespace quillon::preview
