#include "geometry/hole_bands.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>
#include <utility>

#include "base/ranges.h"
#include "geometry/area.h"
#include "geometry/no_index.h"

namespace quillon::geometry {
namespace {

struct Span {
  double low;
  double high;
};

/// Part of a ring inside of a band; where it does not lead on to another one, it ends on a cut.
struct RingPart {
  std::vector<Vertex> vertices;
  Point end;
  bool startsOnCut = false;
  bool endsOnCut = false;
};

/// One band and the parts of all rings inside of it.
class HoleBand {
 public:
  explicit HoleBand(Span span) : span_(span) {}

  const Span& span() const { return span_; }
  void beginRing() { ringStart_ = chains_.size(); }

  /// The next part of the ring, monotone in y and not empty.
  void add(const Edge& edge, bool startsOnCut, bool endsOnCut) {
    if (startsOnCut || chains_.size() == ringStart_ || chains_.back().endsOnCut) {
      chains_.push_back({{}, {}, startsOnCut, false});
    }
    RingPart& chain = chains_.back();
    chain.vertices.push_back({edge.from, edge.curve});
    chain.end = edge.to;
    chain.endsOnCut = endsOnCut;
  }

  void endRing() {
    if (chains_.size() == ringStart_ || chains_.back().endsOnCut) return;
    RingPart& first = chains_[ringStart_];
    RingPart& last = chains_.back();
    if (first.startsOnCut) return;
    if (&first == &last) {
      outlines_.push_back({std::move(last.vertices), true});
    } else {
      last.vertices.insert(last.vertices.end(), first.vertices.begin(), first.vertices.end());
      last.end = first.end;
      last.endsOnCut = first.endsOnCut;
      first = std::move(last);
    }
    chains_.pop_back();
  }

  /// Joins the chains along the cuts: between each second pair of ends is the inside.
  std::vector<Path> outlines() {
    joinAlong(span_.low);
    joinAlong(span_.high);
    std::vector<bool> used(chains_.size(), false);
    for (std::size_t i = 0; i < chains_.size(); ++i) {
      Path outline{.vertices = {}, .closed = true};
      std::size_t at = i;
      while (at != kNoIndex && !used[at]) {
        used[at] = true;
        const RingPart& chain = chains_[at];
        outline.vertices.insert(outline.vertices.end(), chain.vertices.begin(),
                                chain.vertices.end());
        outline.vertices.push_back({chain.end});
        at = next_[at];
      }
      if (at == i) outlines_.push_back(withoutShortEdges(outline, 0.0));
    }
    return std::move(outlines_);
  }

 private:
  void joinAlong(double cut) {
    struct CutEnd {
      double x;
      std::size_t chain;
      bool starts;
    };
    std::vector<CutEnd> ends;
    next_.resize(chains_.size(), kNoIndex);
    for (std::size_t i = 0; i < chains_.size(); ++i) {
      const RingPart& chain = chains_[i];
      const Point start = chain.vertices.front().at;
      if (chain.startsOnCut && start.y == cut) ends.push_back({start.x, i, true});
      if (chain.endsOnCut && chain.end.y == cut) ends.push_back({chain.end.x, i, false});
    }
    base::ranges::sort(ends, {}, &CutEnd::x);
    for (std::size_t i = 0; i + 1 < ends.size(); i += 2) {
      const CutEnd& one = ends[i];
      const CutEnd& other = ends[i + 1];
      if (one.starts == other.starts) continue;  // only where outlines cross
      next_[one.starts ? other.chain : one.chain] = one.starts ? one.chain : other.chain;
    }
  }

  Span span_;
  std::vector<RingPart> chains_;
  std::size_t ringStart_ = 0;
  std::vector<std::size_t> next_;
  std::vector<Path> outlines_;
};

/// Heights at which level lines would touch vertices or summits, ascending.
std::vector<double> heightsToAvoid(const Region& region) {
  std::vector<double> heights;
  const auto add = [&](const Path& path) {
    for (std::size_t i = 0; i < edgeCount(path); ++i) {
      const Edge edge = edgeAt(path, i);
      heights.push_back(edge.from.y);
      for (const double at : fractionsWithDirection(edge, 0.0)) {
        heights.push_back(pointAt(edge, at).y);
      }
    }
  };
  add(region.outer);
  for (const Path& hole : region.holes) add(hole);
  base::ranges::sort(heights);
  return heights;
}

/// The middle of the widest gap between `heights` in a span.
double widestGap(const std::vector<double>& heights, Span span) {
  double best = 0.5 * (span.low + span.high);
  double width = 0.0;
  double from = span.low;
  for (auto at = base::ranges::lower_bound(heights, span.low);; ++at) {
    const double to = at == heights.end() ? span.high : std::min(*at, span.high);
    if (to - from > width) {
      width = to - from;
      best = 0.5 * (from + to);
    }
    if (to >= span.high) return best;
    from = to;
  }
}

/// As few heights as meet the middle half of each hole.
std::vector<double> cutHeights(const Region& region, double& overlap) {
  std::vector<Span> middles;
  for (const Path& hole : region.holes) {
    const Box box = boundsOf(hole);
    const double height = box.high.y - box.low.y;
    if (!(height > 0.0)) continue;
    overlap = std::min(overlap, height / 4.0);
    middles.push_back({box.low.y + height / 4.0, box.high.y - height / 4.0});
  }
  base::ranges::sort(middles, {}, &Span::high);
  const std::vector<double> avoided = heightsToAvoid(region);
  std::vector<double> cuts;
  std::optional<Span> common;
  for (const Span& middle : middles) {
    if (common && middle.low <= common->high) {
      common->low = std::max(common->low, middle.low);
      continue;
    }
    if (common) cuts.push_back(widestGap(avoided, *common));
    common = middle;
  }
  if (common) cuts.push_back(widestGap(avoided, *common));
  return cuts;
}

/// Gives each band its parts of the rings.
class BandCutter {
 public:
  BandCutter(const std::vector<double>& cuts, double overlap) {
    constexpr double kFar = std::numeric_limits<double>::infinity();
    double low = -kFar;
    for (const double cut : cuts) {
      bands_.emplace_back(Span{low, cut + overlap / 2.0});
      low = cut - overlap / 2.0;
    }
    bands_.emplace_back(Span{low, kFar});
    isTouched_.resize(bands_.size());
  }

  void add(const Path& ring) {
    for (std::size_t i = 0; i < edgeCount(ring); ++i) {
      const Edge edge = edgeAt(ring, i);
      double from = 0.0;
      std::vector<double> stops = fractionsWithDirection(edge, 0.0);
      stops.push_back(1.0);
      for (const double to : stops) {
        addMonotone(partOf(edge, from, to));
        from = to;
      }
    }
    for (const std::size_t band : touched_) {
      bands_[band].endRing();
      isTouched_[band] = false;
    }
    touched_.clear();
  }

  std::vector<Path> outlines() {
    std::vector<Path> all;
    for (HoleBand& band : bands_) {
      for (Path& outline : band.outlines()) {
        if (signedArea(outline) > 0.0) all.push_back(std::move(outline));
      }
    }
    return all;
  }

 private:
  void addMonotone(const Edge& edge) {
    const double low = std::min(edge.from.y, edge.to.y);
    const double high = std::max(edge.from.y, edge.to.y);
    const auto first = base::ranges::partition_point(
        bands_, [low](const HoleBand& band) { return band.span().high <= low; });
    for (auto band = first; band != bands_.end() && band->span().low <= high; ++band) {
      const auto index = static_cast<std::size_t>(band - bands_.begin());
      if (!isTouched_[index]) {
        isTouched_[index] = true;
        touched_.push_back(index);
        band->beginRing();
      }
      addTo(*band, edge);
    }
  }

  static void addTo(HoleBand& band, const Edge& edge) {
    const Span span = band.span();
    const auto inside = [span](Point p) { return p.y >= span.low && p.y < span.high; };
    const bool up = edge.to.y > edge.from.y;
    const double enter = up ? span.low : span.high;
    const double leave = up ? span.high : span.low;
    const bool startsOnCut = !inside(edge.from);
    const bool endsOnCut = !inside(edge.to);
    Edge part = edge;
    double first = 0.0;
    double last = 1.0;
    if (startsOnCut) {
      const auto at = crossing(edge, enter);
      if (!at) return;
      first = *at;
      part.from = {pointAt(edge, first).x, enter};
    }
    if (endsOnCut) {
      const auto at = crossing(edge, leave);
      if (!at) return;
      last = *at;
      part.to = {pointAt(edge, last).x, leave};
    }
    part.curve = edge.curve * (last - first);
    band.add(part, startsOnCut, endsOnCut);
  }

  static std::optional<double> crossing(const Edge& edge, double height) {
    if (!std::isfinite(height)) return std::nullopt;
    const std::vector<double> found = fractionsOnLine(edge, {0.0, height}, {1.0, 0.0});
    if (found.empty()) return std::nullopt;
    return found.front();
  }

  std::vector<HoleBand> bands_;
  std::vector<std::size_t> touched_;  ///< bands that have parts of the present ring
  std::vector<bool> isTouched_;
};

}  // namespace

std::vector<Path> cutIntoBands(const Region& region, double overlap) {
  const std::vector<double> cuts = cutHeights(region, overlap);
  BandCutter cutter(cuts, overlap);
  cutter.add(region.outer);
  for (const Path& hole : region.holes) cutter.add(hole);
  return cutter.outlines();
}

}  // namespace quillon::geometry
