#include "preview/differences.h"

#include <algorithm>
#include <utility>

#include "geometry/vectors.h"
#include "preview/differences_finder.h"

namespace quillon::preview {
namespace {

/// The smallest tolerance as a part of a drawing's size.
constexpr double kFinest = 3e-7;

}  // namespace

DifferenceSide::DifferenceSide(std::vector<SceneLine> pieces, std::size_t areas,
                               const geometry::StopCheck& stop)
    : areas_(areas) {
  const std::vector<std::uint32_t> order = tree_.build(
      pieces.size(),
      [&](std::size_t i) {
        geometry::Box box;
        box.add(pieces[i].from);
        box.add(pieces[i].to);
        return box;
      },
      stop);
  pieces_.reserve(order.size());
  for (const std::uint32_t piece : order) {
    pieces_.push_back(pieces[piece]);
    length_ += geometry::distance(pieces[piece].from, pieces[piece].to);
  }
}

Differences compare(const Scene& drawing, const Scene& result, double wantedTolerance,
                    const geometry::StopCheck& stop, std::size_t mostPieces) {
  // No circle has more than some eight thousand lines then.
  const double tolerance = std::max({wantedTolerance, kFinest * drawing.bounds().diagonal(),
                                     kFinest * result.bounds().diagonal()});
  DifferenceShapes first(drawing, tolerance, stop);
  DifferenceShapes second(result, tolerance, stop);
  DifferenceFinder ofDrawing(first, second, tolerance, stop, mostPieces);
  if (!stop()) ofDrawing.find(true);
  second.strokes.dropIndex();
  DifferenceFinder ofResult(second, first, tolerance, stop, mostPieces);
  // A script gives widths to lines that have none in the drawing: EAGLE keeps using the last one.
  if (!stop()) ofResult.find(false);
  Differences found;
  // Where one fills more than the other, the edge tells of the one that fills.
  const std::vector<SceneLine> drawingInside = ofDrawing.takeOverfilled();
  ofDrawing.addOverfilled(ofResult.takeOverfilled());
  ofResult.addOverfilled(drawingInside);
  found.onlyDrawing = ofDrawing.take();
  found.onlyResult = ofResult.take();
  found.isCut = ofDrawing.isCut() || ofResult.isCut();
  return stop() ? Differences() : found;
}

}  // namespace quillon::preview
