#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_set>
#include <vector>

#include "exact/canvas.h"

namespace quillon::exact {

/// A net of points, row by row, in units of the script.
struct MeshNet {
  std::span<const Point> points;
  std::uint64_t rows = 0;
  std::uint64_t columns = 0;
  bool rowsClose = false;     ///< the last point of a row is joined to its first one
  bool columnsClose = false;  ///< likewise
};

/// Draws a net's rows and its columns. Points that are missing make the entity a damaged one.
void drawNet(const Item& item, Canvas& canvas, const MeshNet& net, const Canvas::Stroke& how);

/// Draws edges between points in units of the script by their indices, which count from 0, each
/// edge once.
class EdgesOnce {
 public:
  EdgesOnce(const Item& item, Canvas& canvas, std::span<const Point> points,
            const Canvas::Stroke& how)
      : item_(item), canvas_(canvas), points_(points), how_(how) {}

  void draw(std::int64_t from, std::int64_t to);
  /// Some indices were those of no point.
  bool sawWrongIndex() const { return sawWrongIndex_; }

 private:
  const Item& item_;
  Canvas& canvas_;
  std::span<const Point> points_;
  Canvas::Stroke how_;
  std::unordered_set<std::uint64_t> drawn_;
  bool sawWrongIndex_ = false;
};

}  // namespace quillon::exact
