#include "geometry/dashes.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/ranges.h"
#include "geometry/path_arcs.h"

namespace quillon::geometry {
namespace {

struct Pattern {
  std::vector<double> lengths;  ///< from the first dash on
  double total = 0.0;
  bool hasDash = false;
};

/// Without a total it leaves all solid.
Pattern usablePattern(std::span<const double> lengths) {
  Pattern pattern{.lengths = {lengths.begin(), lengths.end()}};
  bool hasGap = false;
  bool hasMark = false;
  double total = 0.0;
  for (const double length : lengths) {
    hasGap = hasGap || length < 0.0;
    hasMark = hasMark || length >= 0.0;
    total += std::fabs(length);
  }
  if (!hasGap || !hasMark || !(total > 0.0 && total < 1e100)) return pattern;
  pattern.total = total;
  auto first = base::ranges::find_if(pattern.lengths, [](double length) { return length > 0.0; });
  pattern.hasDash = first != pattern.lengths.end();
  if (!pattern.hasDash) first = base::ranges::find(pattern.lengths, 0.0);
  std::rotate(pattern.lengths.begin(), first, pattern.lengths.end());
  return pattern;
}

/// Cuts one part of a path after the other, each by the pattern from its start.
class Cutter {
 public:
  Cutter(const Path& path, Pattern pattern, std::size_t limit)
      : path_(path), pattern_(std::move(pattern)), limit_(limit) {
    ends_.push_back(0.0);
    for (std::size_t i = 0; i < edgeCount(path); ++i) {
      ends_.push_back(ends_.back() + lengthOf(edgeAt(path, i)));
    }
  }

  /// Edges from `first` up to `last`, excluded. False when there are too many pieces.
  bool cut(std::size_t first, std::size_t last) {
    edge_ = first;
    lastEdge_ = last;
    at_ = ends_[first];
    const double length = ends_[last] - ends_[first];
    if (!(length > 0.0)) return true;
    if (!(length > pattern_.total)) {
      dash(ends_[last]);
      return result_.dashes.size() <= limit_;
    }
    cut_ = true;
    const double dashLength = pattern_.hasDash ? pattern_.lengths.front() : 0.0;
    const double repeats = std::max(1.0, std::floor((length - dashLength) / pattern_.total));
    if (repeats * static_cast<double>(pattern_.lengths.size()) >
        std::min(static_cast<double>(limit_), 1e9)) {
      return false;
    }
    const double over = (length - repeats * pattern_.total + dashLength) / 2.0;
    pattern_.hasDash ? dash(at_ + over) : skip(over);
    for (int repeat = 0; repeat < static_cast<int>(repeats); ++repeat) {
      // The pattern's first dash is drawn before the first repeat and after the last one.
      if (repeat > 0 || !pattern_.hasDash) drawElement(pattern_.lengths.front());
      for (std::size_t i = 1; i < pattern_.lengths.size(); ++i) drawElement(pattern_.lengths[i]);
    }
    if (pattern_.hasDash) {
      dash(ends_[last]);
    } else {
      dot();
    }
    return result_.dashes.size() + result_.dots.size() <= limit_;
  }

  bool isCut() const { return cut_; }
  Dashes& result() { return result_; }

 private:
  void drawElement(double length) {
    if (length > 0.0) {
      dash(at_ + length);
    } else if (length == 0.0) {
      dot();
    } else {
      skip(-length);
    }
  }

  void skip(double length) { at_ = std::min(at_ + length, ends_[lastEdge_]); }

  double fractionAt(double length) const {
    const double whole = ends_[edge_ + 1] - ends_[edge_];
    return whole > 0.0 ? std::clamp((length - ends_[edge_]) / whole, 0.0, 1.0) : 0.0;
  }

  /// Goes on to the edge that the present place is in.
  void findEdge() {
    while (edge_ + 1 < lastEdge_ && ends_[edge_ + 1] <= at_) ++edge_;
  }

  void dot() {
    findEdge();
    result_.dots.push_back(pointAt(edgeAt(path_, edge_), fractionAt(at_)));
  }

  void dash(double until) {
    findEdge();
    if (until <= at_) return;
    Path piece;
    double from = fractionAt(at_);
    Point end;
    while (true) {
      const bool endsHere = until <= ends_[edge_ + 1] || edge_ + 1 == lastEdge_;
      const double to = endsHere ? (until >= ends_[edge_ + 1] ? 1.0 : fractionAt(until)) : 1.0;
      const Edge part = partOf(edgeAt(path_, edge_), from, to);
      if (part.from != part.to) piece.vertices.push_back({part.from, part.curve});
      end = part.to;
      if (endsHere) break;
      ++edge_;
      from = 0.0;
    }
    at_ = until;
    piece.vertices.push_back({end});
    if (piece.vertices.size() > 1) add(std::move(piece));
  }

  /// What goes on where the last dash ended belongs to it.
  void add(Path piece) {
    if (!result_.dashes.empty() &&
        result_.dashes.back().vertices.back().at == piece.vertices.front().at) {
      auto& last = result_.dashes.back().vertices;
      last.pop_back();
      last.insert(last.end(), piece.vertices.begin(), piece.vertices.end());
      return;
    }
    result_.dashes.push_back(std::move(piece));
  }

  const Path& path_;
  Pattern pattern_;
  std::size_t limit_;
  std::vector<double> ends_;  ///< lengths up to the start of each edge, and of all
  std::size_t edge_ = 0;
  std::size_t lastEdge_ = 0;
  double at_ = 0.0;
  bool cut_ = false;
  Dashes result_;
};

}  // namespace

Dashes dashed(const Path& path, std::span<const double> lengths, const DashOptions& options) {
  if (!isUsable(path) || edgeCount(path) == 0) return {};
  Dashes solid{.dashes = {path}, .dots = {}};
  Pattern pattern = usablePattern(lengths);
  if (!(pattern.total > 0.0)) return solid;
  Cutter cutter(path, std::move(pattern), options.limit);
  const std::size_t step = options.alongWhole ? edgeCount(path) : 1;
  for (std::size_t first = 0; first < edgeCount(path); first += step) {
    if (cutter.cut(first, first + step)) continue;
    solid.tooMany = true;
    return solid;
  }
  if (cutter.isCut()) return std::move(cutter.result());
  return solid;
}

}  // namespace quillon::geometry
