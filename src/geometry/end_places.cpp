#include "geometry/end_places.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "geometry/hash_index.h"

namespace quillon::geometry {
namespace {

/// So many ends, their places and the table of these fit into the cache next to the processor.
constexpr std::size_t kEndsPerPart = 4096;
constexpr std::size_t kMostEndParts = 512;
constexpr std::size_t kPiecesPerCheck = 64;

std::uint64_t hashOfEnd(std::uint32_t layer, Point at) {
  return mixedBits(mixedBits(bitsOf(at.x) + layer) + bitsOf(at.y));
}

class PlaceSearch {
 public:
  PlaceSearch(std::span<const Piece> pieces, const StopCheck& stop) : pieces_(pieces), stop_(stop) {
    const std::size_t ends = 2 * pieces.size();
    const std::size_t parts =
        std::clamp(std::bit_ceil(ends / kEndsPerPart), std::size_t{2}, kMostEndParts);
    shift_ = 64 - std::countr_zero(parts);
    parts_.resize(parts);
    const std::size_t expected = ends / parts;
    for (Part& part : parts_) part.ends.reserve(expected + expected / 8);
    found_.placeOf.assign(ends, kNoEnd);
  }

  EndPlaces find() {
    if (!partEnds(false)) return {};
    for (Part& part : parts_) part.ofLines = part.ends.size();
    if (!partEnds(true)) return {};
    for (Part& part : parts_) {
      if (stop_()) return {};
      findIn(part);
      part = {};
    }
    return std::move(found_);
  }

 private:
  struct End {
    Point at;
    std::uint32_t layer;
    std::uint32_t number;
  };
  struct Part {
    std::vector<End> ends;
    std::size_t ofLines = 0;  ///< these come first
  };

  /// Adds the ends of lines or those of arcs in their order. False where it was stopped.
  bool partEnds(bool arcs) {
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      if (i % kPiecesPerCheck == 0 && stop_()) return false;
      const Piece& piece = pieces_[i];
      if (piece.isArc != arcs || !hasEnds(piece)) continue;
      for (const std::uint32_t k : {0U, 1U}) {
        const Point at = endOf(piece, k);
        const auto part = static_cast<std::size_t>(hashOfEnd(piece.layer, at) >> shift_);
        parts_[part].ends.push_back({at, piece.layer, static_cast<std::uint32_t>(2 * i) + k});
      }
    }
    return true;
  }

  void findIn(const Part& part) {
    std::vector<EndPlace>& places = found_.places;
    slots_.assign(std::bit_ceil(2 * part.ends.size() + 1), kNoEnd);
    for (std::size_t i = 0; i < part.ends.size(); ++i) {
      const End& end = part.ends[i];
      std::uint32_t& slot = slotOf(end);
      if (slot == kNoEnd) {
        slot = static_cast<std::uint32_t>(places.size());
        places.push_back(
            {.at = end.at, .layer = end.layer, .firstEnd = end.number, .leads = i < part.ofLines});
      }
      ++places[slot].ends;
      found_.placeOf[end.number] = slot;
    }
  }

  std::uint32_t& slotOf(const End& end) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = static_cast<std::size_t>(hashOfEnd(end.layer, end.at)) & mask;
    for (; slots_[slot] != kNoEnd; slot = (slot + 1) & mask) {
      const EndPlace& place = found_.places[slots_[slot]];
      if (place.at == end.at && place.layer == end.layer) break;
    }
    return slots_[slot];
  }

  std::span<const Piece> pieces_;
  const StopCheck& stop_;
  int shift_ = 0;
  std::vector<Part> parts_;
  std::vector<std::uint32_t> slots_;  ///< of one part
  EndPlaces found_;
};

}  // namespace

EndPlaces placesOf(std::span<const Piece> pieces, const StopCheck& stop) {
  return PlaceSearch(pieces, stop).find();
}

}  // namespace quillon::geometry
