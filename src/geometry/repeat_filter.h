#pragma once

#include <cstddef>

#include "geometry/box.h"
#include "geometry/crowd_filter.h"
#include "geometry/duplicates.h"

namespace quillon::geometry {

/// Tells of most strokes that none of the others equals or overlaps them, so that
/// withoutDuplicates() need not know them. All strokes are added first, each once.
class RepeatFilter {
 public:
  /// For so many strokes, all of them within the box (see addTo()). `round` as that of
  /// CrowdFilter.
  RepeatFilter(std::size_t strokes, const Box& box, double resolution, int round = 0);

  /// Extends the box by a stroke that counts for it.
  static void addTo(Box& box, const Stroke& stroke, double resolution);

  void add(const Stroke& stroke);
  /// False only for a stroke that withoutDuplicates() would leave as it is, whatever it did to the
  /// others but for unions elsewhere.
  bool mayRepeat(const Stroke& stroke) const;

  // The same for what strokes have become on the way.

  /// Adds the line or circle that a stroke is on.
  void addCarrier(const Stroke& stroke);
  /// False only for a stroke that is on none of those.
  bool mayBeOnCarrier(const Stroke& stroke) const;
  /// Whether a stroke is so little off another one that it is near to nothing else.
  bool areOnOneCarrier(const Stroke& one, const Stroke& other) const;

 private:
  template <typename Function>
  void forEachCarrierCell(const Stroke& stroke, Function&& function) const;
  template <typename Function>
  void forEachLineCell(const Stroke& stroke, Function&& function) const;
  template <typename Function>
  void forEachCircleCell(const Stroke& stroke, Function&& function) const;
  template <typename Function>
  void forEachMiddleCell(const Stroke& stroke, Function&& function) const;
  bool isFar(const Stroke& stroke) const;

  double resolution_;
  Point origin_;
  double offsetCell_;
  CrowdFilter crowds_;
};

}  // namespace quillon::geometry
