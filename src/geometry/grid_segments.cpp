#include "geometry/grid_segments.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "base/ranges.h"

namespace quillon::geometry {
namespace {

constexpr int kMostRounds = 40;
constexpr std::size_t kMostComparisons = 100'000'000;
constexpr std::size_t kMostCells = 4'000'000;
constexpr std::size_t kMostSplits = 4'000'000;

struct Split {
  std::size_t segment;
  GridPoint at;
};

void keepOddOnes(std::vector<GridSegment>& segments) {
  std::erase_if(segments, [](const GridSegment& s) { return s.from == s.to; });
  for (GridSegment& s : segments) {
    if (s.to < s.from) std::swap(s.from, s.to);
  }
  std::sort(segments.begin(), segments.end());
  std::vector<GridSegment> odd;
  for (const GridSegment& segment : segments) {
    if (!odd.empty() && odd.back() == segment) {
      odd.pop_back();
    } else {
      odd.push_back(segment);
    }
  }
  segments = std::move(odd);
}

int signOf(std::int64_t value) { return (value > 0) - (value < 0); }

/// Where segments meet, found by the cells of a coarse grid that both pass through.
class Meetings {
 public:
  explicit Meetings(const std::vector<GridSegment>& segments) : segments_(segments) {}

  bool find() {
    layOutCells();
    if (!fillCells()) return false;
    base::ranges::sort(entries_);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      for (std::size_t j = i + 1; j < entries_.size() && entries_[j].first == entries_[i].first;
           ++j) {
        if (++comparisons_ > kMostComparisons || splits_.size() > kMostSplits) return false;
        compare(entries_[i].second, entries_[j].second);
      }
    }
    return true;
  }

  std::vector<Split>& splits() { return splits_; }

 private:
  void layOutCells() {
    GridPoint low{kLargestStep, kLargestStep};
    GridPoint high{-kLargestStep, -kLargestStep};
    for (const GridSegment& s : segments_) {
      low = {std::min(low.x, s.from.x), std::min({low.y, s.from.y, s.to.y})};
      high = {std::max(high.x, s.to.x), std::max({high.y, s.from.y, s.to.y})};
    }
    origin_ = low;
    const auto rows = static_cast<std::int64_t>(std::sqrt(double(segments_.size()))) + 1;
    cell_ = std::max<std::int64_t>(1, std::max(high.x - low.x, high.y - low.y) / rows);
    columns_ = (high.x - low.x) / cell_ + 1;
  }

  /// Each column of cells is as wide as a part of the segment, which tells its rows.
  bool fillCells() {
    for (std::size_t i = 0; i < segments_.size(); ++i) {
      const GridPoint from = segments_[i].from - origin_;
      const GridPoint to = segments_[i].to - origin_;
      const double slope = to.x == from.x ? 0.0 : double(to.y - from.y) / double(to.x - from.x);
      for (std::int64_t column = from.x / cell_; column <= to.x / cell_; ++column) {
        double start = double(from.y);
        double end = double(to.y);
        if (to.x != from.x) {
          const std::int64_t left = std::max(from.x, column * cell_);
          const std::int64_t right = std::min(to.x, (column + 1) * cell_);
          start = double(from.y) + slope * double(left - from.x);
          end = double(from.y) + slope * double(right - from.x);
        }
        // A step more to either side makes up for rounding.
        const auto low = static_cast<std::int64_t>(std::max(0.0, std::min(start, end) - 1.0));
        const auto high = static_cast<std::int64_t>(std::max(start, end) + 1.0);
        for (std::int64_t row = low / cell_; row <= high / cell_; ++row) {
          entries_.emplace_back(row * columns_ + column, i);
        }
        if (entries_.size() > kMostCells + 8 * segments_.size()) return false;
      }
    }
    return true;
  }

  void compare(std::size_t a, std::size_t b) {
    const GridSegment& one = segments_[a];
    const GridSegment& other = segments_[b];
    if (std::max(one.from.x, other.from.x) > std::min(one.to.x, other.to.x)) return;
    const GridPoint along = one.to - one.from;
    const GridPoint otherAlong = other.to - other.from;
    const std::int64_t start = cross(along, other.from - one.from);
    const std::int64_t end = cross(along, other.to - one.from);
    const std::int64_t from = cross(otherAlong, one.from - other.from);
    const std::int64_t to = cross(otherAlong, one.to - other.from);
    if (signOf(start) * signOf(end) < 0 && signOf(from) * signOf(to) < 0) {
      const double share = double(from) / (double(from) - double(to));
      const GridPoint at{one.from.x + std::llround(double(along.x) * share),
                         one.from.y + std::llround(double(along.y) * share)};
      addSplit(a, at);
      addSplit(b, at);
      return;
    }
    if (start == 0) splitIfBetween(a, other.from);
    if (end == 0) splitIfBetween(a, other.to);
    if (from == 0) splitIfBetween(b, one.from);
    if (to == 0) splitIfBetween(b, one.to);
  }

  /// For a point on the line of the segment.
  void splitIfBetween(std::size_t segment, GridPoint at) {
    if (segments_[segment].from < at && at < segments_[segment].to) addSplit(segment, at);
  }

  void addSplit(std::size_t segment, GridPoint at) {
    if (at != segments_[segment].from && at != segments_[segment].to) {
      splits_.push_back({segment, at});
    }
  }

  const std::vector<GridSegment>& segments_;
  GridPoint origin_;
  std::int64_t cell_ = 1;
  std::int64_t columns_ = 1;
  std::size_t comparisons_ = 0;
  std::vector<std::pair<std::int64_t, std::size_t>> entries_;
  std::vector<Split> splits_;
};

/// The pieces of the segments, each split in the order along it.
std::vector<GridSegment> applied(const std::vector<GridSegment>& segments,
                                 std::vector<Split>& splits) {
  base::ranges::sort(splits, {}, [&](const Split& split) {
    const GridSegment& s = segments[split.segment];
    return std::tuple(split.segment, dot(s.to - s.from, split.at - s.from), split.at);
  });
  std::vector<GridSegment> pieces;
  std::size_t next = 0;
  for (std::size_t i = 0; i < segments.size(); ++i) {
    GridPoint from = segments[i].from;
    for (; next < splits.size() && splits[next].segment == i; ++next) {
      pieces.push_back({from, splits[next].at});
      from = splits[next].at;
    }
    pieces.push_back({from, segments[i].to});
  }
  return pieces;
}

}  // namespace

bool splitAtCrossings(std::vector<GridSegment>& segments) {
  for (int round = 0; round < kMostRounds; ++round) {
    keepOddOnes(segments);
    Meetings meetings(segments);
    if (!meetings.find()) return false;
    if (meetings.splits().empty()) return true;
    segments = applied(segments, meetings.splits());
  }
  return false;
}

}  // namespace quillon::geometry
