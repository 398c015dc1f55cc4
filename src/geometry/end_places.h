#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "geometry/piece.h"
#include "geometry/stop_check.h"

namespace quillon::geometry {

/// In place of the number of an end or of a place where there is none.
inline constexpr std::uint32_t kNoEnd = std::numeric_limits<std::uint32_t>::max();
/// Their ends have numbers below kNoEnd.
inline constexpr std::size_t kMostPieces = kNoEnd / 2;

/// Where ends are that are equal, bit for bit but for the sign of zero, and on one layer.
struct EndPlace {
  Point at;
  std::uint32_t layer = 0;
  std::uint32_t ends = 0;
  /// Of lines and polylines, or of arcs where there are none: pieces[i] starts with the end 2 i and
  /// ends with the end 2 i + 1.
  std::uint32_t firstEnd = kNoEnd;
  bool leads = false;  ///< has an end of a line or polyline
};

struct EndPlaces {
  std::vector<EndPlace> places;  ///< in no order
  /// Of each end, the index of its place; kNoEnd where the piece has no ends.
  std::vector<std::uint32_t> placeOf;
};

/// Where all ends of up to kMostPieces pieces are. Linear time; the ends are parted by their
/// places, so that the processor has at hand those that may be equal. Empty where `stop` ends it.
EndPlaces placesOf(std::span<const Piece> pieces, const StopCheck& stop);

}  // namespace quillon::geometry
