#include "geometry/repeat_filter.h"

#include <algorithm>
#include <cmath>

namespace quillon::geometry {
namespace {

/// With much room, so that hardly anything is taken for near by chance.
constexpr std::size_t kCellsPerCarrier = 64;

}  // namespace

RepeatFilter::RepeatFilter(std::size_t strokes, const StrokeCells& cells, Grid grid,
                           HashMemory* memory)
    : cells_(cells),
      grid_(grid),
      hashes_(grid == Grid::Coarse ? strokes + strokes / 2 : 8 * strokes, memory) {}

void RepeatFilter::addTo(Box& box, const Stroke& stroke, double resolution) {
  if (isNothing(stroke, resolution)) return;
  box.add(stroke.edge.from);
  box.add(stroke.edge.to);
}

void RepeatFilter::add(const Stroke& stroke, std::size_t index) {
  const auto keep = [&](std::uint64_t hash) { hashes_.add(hash, index); };
  // Apart, so that compilers leave out what only the other grid needs.
  const bool isTold = grid_ == Grid::Coarse ? cells_.forEach(stroke, Grid::Coarse, keep)
                                            : cells_.forEach(stroke, Grid::Fine, keep);
  if (!isTold) doubtful_.push_back(index);
}

std::vector<bool> RepeatFilter::repeating(std::size_t indices) {
  std::vector<bool> repeats(indices, false);
  hashes_.mark(repeats);
  for (const std::size_t index : doubtful_) repeats[index] = true;
  doubtful_.clear();
  return repeats;
}

CarrierFilter::CarrierFilter(std::size_t strokes, const StrokeCells& cells)
    : cells_(cells), hashes_(kCellsPerCarrier * strokes) {}

void CarrierFilter::add(const Stroke& stroke) {
  // Of what reaches far, all of the line counts: unions that grow step by step would have too many
  // parts together.
  constexpr double kManyParts = 16.0;
  const bool isFine = cells_.countOfParts(stroke) <= kManyParts;
  cells_.forEachCarrier(stroke, isFine ? StrokeCells::Grid::Fine : StrokeCells::Grid::Coarse,
                        [this](std::uint64_t hash) { hashes_.add(hash); });
}

bool CarrierFilter::mayHave(const Stroke& stroke) const {
  bool isNear = false;
  const auto look = [&](std::uint64_t hash) { isNear = isNear || hashes_.mayHave(hash); };
  cells_.forEachCarrier(stroke, StrokeCells::Grid::Coarse, look);
  if (!isNear) cells_.forEachCarrier(stroke, StrokeCells::Grid::Fine, look);
  return isNear;
}

}  // namespace quillon::geometry
