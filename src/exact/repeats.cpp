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

Stroke strokeOf(const geometry::Edge& edge, const Look& look) {
  Stroke stroke;
  stroke.layer = look.pen;
  stroke.isCircle = look.isCircle;
  stroke.edge = edge;
  if (look.isCircle) stroke.edge = {geometry::middle(edge.from, edge.to), edge.to, 0.0};
  return stroke;
}

bool isInside(const geometry::Box& box, Point p) {
  return p.x >= box.low.x && p.x <= box.high.x && p.y >= box.low.y && p.y <= box.high.y;
}

/// Finds what the segments of a layer have twice, of which there may be millions, nearly all of
/// them once.
class RepeatSearch {
 public:
  RepeatSearch(HeldLayer& layer, double resolution, const CleaningRun& run)
      : layer_(layer),
        resolution_(resolution),
        stop_(run.stop),
        memory_(run.memory),
        cells_(layer.endsBox(), resolution) {}

  /// False where it was stopped. The rounds are few: withoutDuplicates() looks through its grids
  /// once, eight for lines and as many for arcs, and each round makes what one more of them finds
  /// what it would find among all strokes.
  bool run() {
    if (!findNear() || !findGiven()) return false;
    if (given_.empty()) return true;
    do {
      cleaned_ = geometry::withoutDuplicates(strokes_, resolution_, boxOfOthers(), stop_);
      if (stop_()) return false;
    } while (giveMore());
    return true;
  }

  const std::vector<std::size_t>& given() const { return given_; }
  const std::vector<Stroke>& givenStrokes() const { return strokes_; }
  const geometry::Cleaned& cleaned() const { return cleaned_; }

 private:
  /// Calls function(index, stroke) for those that isWanted(index) wants. False where it was
  /// stopped.
  template <typename IsWanted, typename Function>
  bool forEachStroke(IsWanted&& isWanted, Function&& function) const {
    constexpr std::size_t kSegmentsPerCheck = 64;
    const SegmentList& segments = layer_.segments();
    for (std::size_t i = 0; i < segments.size(); ++i) {
      if (i % kSegmentsPerCheck == 0 && stop_()) return false;
      if (!isWanted(i)) continue;
      const Look& look = layer_.lookOf(segments[i]);
      if (look.cleanable) function(i, strokeOf(segments.edge(i), look));
    }
    return true;
  }

  bool findNear() {
    const std::size_t count = layer_.segments().size();
    geometry::RepeatFilter filter(count, cells_, geometry::StrokeCells::Grid::Coarse, &memory_);
    const auto all = [](std::size_t) { return true; };
    const auto add = [&](std::size_t i, const Stroke& stroke) { filter.add(stroke, i); };
    if (!forEachStroke(all, add)) return false;
    isNear_ = filter.repeating(count);
    return true;
  }

  /// A second look at those that are near others: in a grid of equal things, many are beside each
  /// other on one line.
  bool findGiven() {
    isGiven_.assign(isNear_.size(), false);
    if (!collect(isNear_)) return false;
    if (given_.empty()) return true;
    double length = 0.0;
    for (const Stroke& stroke : strokes_) length += norm(stroke.edge.to - stroke.edge.from);
    const double mean = length / static_cast<double>(strokes_.size());
    cells_ =
        geometry::StrokeCells(layer_.endsBox(), resolution_, geometry::usable(mean) ? mean : 0.0);
    geometry::RepeatFilter filter(strokes_.size(), cells_, geometry::StrokeCells::Grid::Fine,
                                  &memory_);
    for (std::size_t k = 0; k < strokes_.size(); ++k) filter.add(strokes_[k], k);
    const std::vector<bool> isRepeating = filter.repeating(strokes_.size());
    std::size_t left = 0;
    for (std::size_t k = 0; k < strokes_.size(); ++k) {
      if (!isRepeating[k]) continue;
      isGiven_[given_[k]] = true;
      given_[left] = given_[k];
      strokes_[left++] = strokes_[k];
    }
    given_.resize(left);
    strokes_.resize(left);
    return !stop_();
  }

  /// Those strokes are given. False where it was stopped.
  bool collect(const std::vector<bool>& which) {
    const auto count = static_cast<std::size_t>(std::count(which.begin(), which.end(), true));
    given_.clear();
    strokes_.clear();
    given_.reserve(count);
    strokes_.reserve(count);
    const auto isWanted = [&which](std::size_t i) { return which[i]; };
    return forEachStroke(isWanted, [this](std::size_t i, const Stroke& stroke) {
      given_.push_back(i);
      strokes_.push_back(stroke);
    });
  }

  geometry::Box boxOfOthers() const {
    geometry::Box box;
    const SegmentList& segments = layer_.segments();
    // Nearly all of them are within the box of those before.
    const auto mayCount = [&](std::size_t i) {
      return !isGiven_[i] && !(isInside(box, segments[i].from) && isInside(box, segments[i].to));
    };
    forEachStroke(mayCount, [&](std::size_t, const Stroke& stroke) {
      geometry::RepeatFilter::addTo(box, stroke, resolution_);
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
    const auto mayBeNear = [&](std::size_t i) {
      return !isGiven_[i] && (hasLeftLine || isNear_[i]);
    };
    forEachStroke(mayBeNear, [&](std::size_t i, const Stroke& stroke) {
      if (!filter.mayHave(stroke)) return;
      isGiven_[i] = true;
      givesMore = true;
    });
    if (givesMore) collect(isGiven_);
    return givesMore;
  }

  const HeldLayer& layer_;
  double resolution_;
  const geometry::StopCheck& stop_;
  geometry::HashMemory& memory_;
  geometry::StrokeCells cells_;
  std::vector<bool> isNear_;        ///< of each segment: whether others are on its line, or on it
  std::vector<bool> isGiven_;       ///< of these: whether it may be drawn twice
  std::vector<std::size_t> given_;  ///< those that may
  std::vector<Stroke> strokes_;     ///< of these
  geometry::Cleaned cleaned_;
};

/// Puts what is left of a stroke in the place of its segment.
void redraw(HeldLayer& layer, std::size_t index, const Stroke& stroke) {
  constexpr double kWidestArc = 359.0;
  const bool isCircle = stroke.isCircle || layer.lookOf(layer.segments()[index]).isCircle;
  if (!isCircle && std::fabs(stroke.edge.curve) <= kWidestArc) {
    return layer.setEdge(index, stroke.edge);
  }
  Chain chain;
  layer.toChain(index, chain);
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
                    const CleaningRun& run) {
  RepeatSearch search(layer, measures.resolution, run);
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
    const Origin origin = layer.originOf(layer.segments()[index]);
    losses.add({LossRule::Duplicate, origin.kind, origin.dxfLayer, origin.line, stroke.edge.from});
    layer.dropSegment(index);
  }
  layer.settle();
}

}  // namespace quillon::exact
