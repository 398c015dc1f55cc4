#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry/box.h"
#include "geometry/stop_check.h"
#include "preview/differences_keys.h"
#include "preview/line_part.h"
#include "preview/scene_tree.h"

namespace quillon::preview {

/// A straight stroke of a round pen, in millimetres.
struct DifferenceStroke {
  enum class Kind : std::uint8_t { Line, Text, Edge };

  geometry::Point from;
  geometry::Point to;
  float half = 0.0F;       ///< of its width
  Kind kind = Kind::Line;  ///< Edge: of an area
};

/// Where the line between two points is within `reach` of the middle of a stroke; empty where it
/// nowhere is.
LinePart coveredPart(geometry::Point from, geometry::Point to, const DifferenceStroke& stroke,
                     double reach);

/// All lines, flattened curves and outlines of a scene.
class DifferenceStrokes {
 public:
  DifferenceStrokes() = default;
  /// Like strokes are recognised by this tolerance, in millimetres.
  DifferenceStrokes(std::vector<DifferenceStroke> strokes, double tolerance,
                    const geometry::StopCheck& stop);

  const std::vector<DifferenceStroke>& all() const { return strokes_; }
  /// About how long parts of a stroke should be that are looked up at once.
  double partLength() const { return partLength_; }
  /// Whether a stroke with the same ends and width is here: true only if so, but may be false all
  /// the same where coordinates are not quite alike.
  bool has(const DifferenceStroke& stroke) const;

  /// Makes visit() possible; it visits nothing when stopped.
  void index(const geometry::StopCheck& stop);
  void dropIndex();
  /// Calls visit(part) for the parts of strokes that may touch the box, widths included, until it
  /// returns false.
  template <typename Visit>
  void visit(const geometry::Box& box, const Visit& visit) const {
    tree_.visit(box, [&](std::size_t first, std::size_t end) {
      for (std::size_t i = first; i < end; ++i) {
        if (mayTouch(parts_[i], box) && !visit(parts_[i])) return false;
      }
      return true;
    });
  }

 private:
  static bool mayTouch(const DifferenceStroke& stroke, const geometry::Box& box) {
    const double half = stroke.half;
    return std::min(stroke.from.x, stroke.to.x) - half <= box.high.x &&
           std::max(stroke.from.x, stroke.to.x) + half >= box.low.x &&
           std::min(stroke.from.y, stroke.to.y) - half <= box.high.y &&
           std::max(stroke.from.y, stroke.to.y) + half >= box.low.y;
  }
  std::uint64_t keyOf(const DifferenceStroke& stroke) const;

  DifferenceKeys keysOf_{1.0};
  std::vector<DifferenceStroke> strokes_;
  std::vector<std::uint64_t> keys_;  ///< sorted
  double partLength_ = 0.0;
  bool isIndexed_ = false;
  std::vector<DifferenceStroke> parts_;  ///< in the order of the tree
  SceneTree tree_;
};

}  // namespace quillon::preview
