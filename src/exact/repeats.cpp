#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "exact/outlines.h"
#include "geometry/duplicates.h"
#include "geometry/path_tools.h"
#include "geometry/repeat_filter.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

using geometry::Stroke;

Stroke strokeOf(const HeldSegment& segment, const Look& look) {
  Stroke stroke;
  stroke.layer = look.pen;
  stroke.isCircle = look.isCircle;
  stroke.edge = {segment.from, segment.to, segment.curve};
  if (look.isCircle) {
    stroke.edge = {geometry::middle(segment.from, segment.to), segment.to, 0.0};
  }
  return stroke;
}

/// Finds what the segments of a layer have twice, of which there may be millions, nearly all of
/// them once.
class RepeatSearch {
 public:
  RepeatSearch(HeldLayer& layer, double resolution, const geometry::StopCheck& stop)
      : layer_(layer),
        resolution_(resolution),
        stop_(stop),
        cells_({}, resolution),
        isNear_(layer.segments().size()) {}

  /// False where it was stopped. The rounds are few: withoutDuplicates() looks through its grids
  /// once, eight for lines and as many for arcs, and each round makes what one more of them finds
  /// what it would find among all strokes.
  bool run() {
    if (!findGiven()) return false;
    if (std::find(isGiven_.begin(), isGiven_.end(), true) == isGiven_.end()) return true;
    do {
      cleaned_ = geometry::withoutDuplicates(strokes(), resolution_, boxOfOthers(), stop_);
      if (stop_()) return false;
    } while (giveMore());
    return true;
  }

  const std::vector<std::size_t>& given() const { return given_; }
  const std::vector<Stroke>& givenStrokes() const { return strokes_; }
  const geometry::Cleaned& cleaned() const { return cleaned_; }

 private:
  template <typename Function>
  bool forEachStroke(Function&& function) const {
    constexpr std::size_t kSegmentsPerCheck = 64;
    const SegmentList& segments = layer_.segments();
    for (std::size_t i = 0; i < segments.size(); ++i) {
      if (i % kSegmentsPerCheck == 0 && stop_()) return false;
      const Look& look = layer_.lookOf(segments[i]);
      if (look.cleanable) function(i, strokeOf(segments[i], look));
    }
    return true;
  }

  bool findGiven() {
    geometry::Box box;
    std::size_t count = 0;
    double length = 0.0;
    const auto measure = [&](std::size_t, const Stroke& stroke) {
      ++count;
      geometry::RepeatFilter::addTo(box, stroke, resolution_);
      length += geometry::distance(stroke.edge.from, stroke.edge.to);
    };
    if (!forEachStroke(measure)) return false;
    const double mean = count == 0 ? 0.0 : length / static_cast<double>(count);
    cells_ = geometry::StrokeCells(box, resolution_, geometry::usable(mean) ? mean : 0.0);
    geometry::RepeatFilter filter(count, cells_);
    const auto add = [&](std::size_t i, const Stroke& stroke) { filter.add(stroke, i); };
    if (!forEachStroke(add)) return false;
    isNear_ = filter.repeating(isNear_.size());
    return sift();
  }

  /// A second look at those that are left: in a grid of equal things, many are beside each other on
  /// one line.
  bool sift() {
    const auto left = std::count(isNear_.begin(), isNear_.end(), true);
    geometry::RepeatFilter filter(static_cast<std::size_t>(left), cells_,
                                  geometry::StrokeCells::Grid::Fine);
    const auto add = [&](std::size_t i, const Stroke& stroke) {
      if (isNear_[i]) filter.add(stroke, i);
    };
    if (left > 0 && !forEachStroke(add)) return false;
    isGiven_ = filter.repeating(isNear_.size());
    return true;
  }

  const std::vector<Stroke>& strokes() {
    given_.clear();
    strokes_.clear();
    forEachStroke([this](std::size_t i, const Stroke& stroke) {
      if (!isGiven_[i]) return;
      given_.push_back(i);
      strokes_.push_back(stroke);
    });
    return strokes_;
  }

  geometry::Box boxOfOthers() const {
    geometry::Box box;
    forEachStroke([&](std::size_t i, const Stroke& stroke) {
      if (!isGiven_[i]) geometry::RepeatFilter::addTo(box, stroke, resolution_);
    });
    return box;
  }

  /// What a stroke has become may be where it was near to nothing: then others count as well.
  /// Where it only reaches farther, these are among those that were on its line before.
  bool giveMore() {
    std::vector<const Stroke*> moved;
    bool hasLeftLine = false;
    for (const geometry::Union& joined : cleaned_.unions) {
      const Stroke& old = strokes_[joined.index];
      const bool isOnOne = cells_.areOnOne(old, joined.stroke);
      if (isOnOne && cells_.reachToSame(old, joined.stroke)) continue;
      moved.push_back(&joined.stroke);
      hasLeftLine = hasLeftLine || !isOnOne;
    }
    if (moved.empty()) return false;
    geometry::CarrierFilter filter(moved.size(), cells_);
    for (const Stroke* const stroke : moved) filter.add(*stroke);
    bool givesMore = false;
    forEachStroke([&](std::size_t i, const Stroke& stroke) {
      if (isGiven_[i] || !(hasLeftLine || isNear_[i]) || !filter.mayHave(stroke)) return;
      isGiven_[i] = true;
      givesMore = true;
    });
    return givesMore;
  }

  const HeldLayer& layer_;
  double resolution_;
  const geometry::StopCheck& stop_;
  geometry::StrokeCells cells_;
  std::vector<bool> isNear_;        ///< of each segment: whether others are on its line, or on it
  std::vector<bool> isGiven_;       ///< of these: whether it may be drawn twice
  std::vector<std::size_t> given_;  ///< those that are
  std::vector<Stroke> strokes_;     ///< of these
  geometry::Cleaned cleaned_;
};

/// Puts what is left of a stroke in the place of its segment.
void redraw(HeldLayer& layer, std::size_t index, const Stroke& stroke) {
  constexpr double kWidestArc = 359.0;
  HeldSegment& segment = layer.segments()[index];
  const bool isCircle = stroke.isCircle || layer.lookOf(segment).isCircle;
  if (!isCircle && std::fabs(stroke.edge.curve) <= kWidestArc) {
    segment.from = stroke.edge.from;
    segment.to = stroke.edge.to;
    segment.curve = stroke.edge.curve;
    return;
  }
  Chain chain;
  layer.toChain(segment, chain);
  chain.isCircle = stroke.isCircle;
  const Point from = stroke.edge.from;
  if (stroke.isCircle) {
    const double radius = geometry::distance(from, stroke.edge.to);
    chain.path = {{{{from.x - radius, from.y}, 180.0}, {{from.x + radius, from.y}, 180.0}}, true};
  } else {
    chain.path = {{{from, stroke.edge.curve}, {stroke.edge.to}}, false};
    geometry::splitWideArcs(chain.path);
  }
  layer.replaceSegment(index, std::move(chain));
}

}  // namespace

void dropDuplicates(HeldLayer& layer, const Measures& measures, LossList& losses,
                    const geometry::StopCheck& stop) {
  RepeatSearch search(layer, measures.resolution, stop);
  if (!search.run()) return;
  const geometry::Cleaned& cleaned = search.cleaned();
  std::size_t left = 0;
  for (std::size_t i = 0; i < search.given().size(); ++i) {
    const std::size_t index = search.given()[i];
    const Stroke& stroke = search.givenStrokes()[i];
    if (left < cleaned.from.size() && cleaned.from[left] == i) {
      if (cleaned.strokes[left] != stroke) redraw(layer, index, cleaned.strokes[left]);
      ++left;
      continue;
    }
    HeldSegment& segment = layer.segments()[index];
    const Origin origin = layer.originOf(segment);
    losses.add({LossRule::Duplicate, origin.kind, origin.dxfLayer, origin.line, stroke.edge.from});
    segment.isDropped = true;
  }
  layer.settle();
}

}  // namespace quillon::exact
