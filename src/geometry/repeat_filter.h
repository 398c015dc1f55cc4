#pragma once

#include <cstddef>
#include <vector>

#include "geometry/box.h"
#include "geometry/duplicates.h"
#include "geometry/hash_index.h"
#include "geometry/shared_hashes.h"
#include "geometry/stroke_cells.h"

namespace quillon::geometry {

/// Tells of most strokes that none of the others equals or overlaps them, so that
/// withoutDuplicates() need not know them. Strokes have indices.
class RepeatFilter {
 public:
  /// Coarse is fast; fine is for those that are left, of which it leaves few that are beside each
  /// other on one line.
  using Grid = StrokeCells::Grid;

  /// For about so many strokes, all of them within the box of the cells (see addTo()). The memory
  /// has to outlive this; null for memory of its own.
  RepeatFilter(std::size_t strokes, const StrokeCells& cells, Grid grid = Grid::Coarse,
               HashMemory* memory = nullptr);

  /// Extends the box by a stroke that counts for it.
  static void addTo(Box& box, const Stroke& stroke, double resolution);

  void add(const Stroke& stroke, std::size_t index);
  /// Of so many indices: false only for a stroke that withoutDuplicates() would leave as it is,
  /// whatever it did to the others but for unions elsewhere. Forgets all strokes.
  std::vector<bool> repeating(std::size_t indices);

 private:
  StrokeCells cells_;
  Grid grid_;
  SharedHashes hashes_;
  std::vector<std::size_t> doubtful_;
};

/// Knows what strokes have become when others were joined with them, and what may be near to that.
class CarrierFilter {
 public:
  /// For about so many strokes, with the cells that a RepeatFilter had.
  CarrierFilter(std::size_t strokes, const StrokeCells& cells);

  /// Adds the circle that a stroke is on, or the part of a line.
  void add(const Stroke& stroke);
  /// False only for a stroke that is on none of those.
  bool mayHave(const Stroke& stroke) const;

 private:
  StrokeCells cells_;
  HashFilter hashes_;
};

}  // namespace quillon::geometry
