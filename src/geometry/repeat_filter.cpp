#include "geometry/repeat_filter.h"

#include <algorithm>
#include <cmath>

namespace quillon::geometry {
namespace {

/// With much room, so that hardly anything is taken for near by chance.
constexpr std::size_t kCellsPerCarrier = 64;

/// No stroke of which nothing would be left; some that would stay are not counted.
bool hasSize(const Stroke& stroke, double resolution) {
  const Edge& edge = stroke.edge;
  constexpr double kClearly = 1.0 + 1e-9;
  return usable(edge.from) && usable(edge.to) && std::fabs(edge.curve) < 360.0 &&
         norm(edge.to - edge.from) > resolution * kClearly;
}

}  // namespace

RepeatFilter::RepeatFilter(std::size_t strokes, const Box& box, double resolution)
    : cells_(box, resolution), hashes_(2 * strokes + strokes / 2) {}

void RepeatFilter::addTo(Box& box, const Stroke& stroke, double resolution) {
  if (isNothing(stroke, resolution)) return;
  box.add(stroke.edge.from);
  box.add(stroke.edge.to);
}

void RepeatFilter::add(const Stroke& stroke, std::size_t index) {
  const bool isTold = cells_.forEach(stroke, [&](std::uint64_t hash) { hashes_.add(hash, index); });
  if (!isTold || !hasSize(stroke, cells_.resolution())) doubtful_.push_back(index);
}

std::vector<bool> RepeatFilter::repeating(std::size_t indices) {
  std::vector<bool> repeats(indices, false);
  hashes_.mark(repeats);
  for (const std::size_t index : doubtful_) repeats[index] = true;
  doubtful_.clear();
  return repeats;
}

CarrierFilter::CarrierFilter(std::size_t strokes, const Box& box, double resolution)
    : cells_(box, resolution), hashes_(kCellsPerCarrier * strokes) {}

void CarrierFilter::add(const Stroke& stroke) {
  cells_.forEachCarrier(stroke, [this](std::uint64_t hash) { hashes_.add(hash); });
}

bool CarrierFilter::mayHave(const Stroke& stroke) const {
  bool isNear = false;
  cells_.forEachCarrier(stroke,
                        [&](std::uint64_t hash) { isNear = isNear || hashes_.mayHave(hash); });
  return isNear;
}

}  // namespace quillon::geometry
