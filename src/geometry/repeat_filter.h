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
  /// For about so many strokes, all of them within the box (see addTo()).
  RepeatFilter(std::size_t strokes, const Box& box, double resolution);

  /// Extends the box by a stroke that counts for it.
  static void addTo(Box& box, const Stroke& stroke, double resolution);

  void add(const Stroke& stroke, std::size_t index);
  /// Of so many indices: false only for a stroke that withoutDuplicates() would leave as it is,
  /// whatever it did to the others but for unions elsewhere. Forgets all strokes.
  std::vector<bool> repeating(std::size_t indices);

 private:
  StrokeCells cells_;
  SharedHashes hashes_;
  std::vector<std::size_t> doubtful_;
};

/// Knows what strokes have become when others were joined with them, and what may be near to that.
class CarrierFilter {
 public:
  /// For about so many strokes, within the box that a RepeatFilter had.
  CarrierFilter(std::size_t strokes, const Box& box, double resolution);

  /// Adds the line or circle that a stroke is on.
  void add(const Stroke& stroke);
  /// False only for a stroke that is on none of those.
  bool mayHave(const Stroke& stroke) const;

 private:
  StrokeCells cells_;
  HashFilter hashes_;
};

}  // namespace quillon::geometry
