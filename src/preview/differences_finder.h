#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "preview/differences.h"
#include "preview/differences_shapes.h"

namespace quillon::preview {

/// Finds what one scene has and the other has not.
class DifferenceFinder {
 public:
  DifferenceFinder(const DifferenceShapes& own, DifferenceShapes& other, double tolerance,
                   const geometry::StopCheck& stop, std::size_t mostPieces);

  /// `areWidthsMeant`: own lines have to be as wide in the other scene.
  void find(bool areWidthsMeant);
  /// The pieces, once.
  DifferenceSide take();
  /// Where the other one fills more: along edges of own areas that it fills on both sides.
  std::vector<SceneLine> takeOverfilled() { return std::exchange(overfilled_, {}); }
  void addOverfilled(const std::vector<SceneLine>& edges);
  bool isCut() const { return isCut_; }

 private:
  bool goesOn();
  bool isFull() const { return pieces_.size() + overfilled_.size() >= mostPieces_; }
  void findStroke(const DifferenceStroke& stroke);
  /// A line that has to be covered; `isEdge`: by more than the inside of an area.
  void findLine(geometry::Point from, geometry::Point to, bool isEdge);
  void findPart(geometry::Point from, geometry::Point to, bool isEdge);
  void addUncovered(geometry::Point from, geometry::Point to, bool isEdge);
  void addPiece(std::vector<SceneLine>& pieces, geometry::Point from, geometry::Point to);
  void findArea(const DifferenceArea& area);
  /// Hatches a level part of an area. False where there is nothing to hatch.
  bool hatch(double left, double right, double y, double step);
  bool isFilled(geometry::Point point) const;
  /// Whether own areas fill both sides of a line at its middle.
  bool isSeam(geometry::Point from, geometry::Point to) const;

  const DifferenceShapes& own_;
  DifferenceShapes& other_;
  double tolerance_;
  const geometry::StopCheck& stop_;
  std::size_t mostPieces_;
  std::vector<SceneLine> pieces_;
  std::vector<SceneLine> overfilled_;
  std::size_t areas_ = 0;
  std::vector<LinePart> covered_;
  std::vector<DifferenceArea::Crossing> crossings_;
  std::uint64_t askAt_ = 0;
  mutable std::uint64_t checks_ = 0;
  bool areWidthsMeant_ = true;
  bool isCut_ = false;
  bool isStopped_ = false;
};

}  // namespace quillon::preview
