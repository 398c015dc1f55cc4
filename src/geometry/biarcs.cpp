#include "geometry/biarcs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

constexpr std::size_t kSamples = 15;
constexpr int kMostHalvings = 24;
/// Between the samples a curve may stray by about a fiftieth more than at them.
constexpr double kAtSamples = 0.975;

/// The arc that leaves `start` in this direction and ends at `end`.
Arc arcAlong(Point start, Point direction, Point end) {
  const Point way = end - start;
  const Point turnedBack{dot(way, direction), dot(way, leftOf(direction))};
  return {start, end, 2.0 * directionOf(turnedBack)};
}

/// The root above 0 of a d² + b d - c = 0, for a and c that are not negative; NaN or infinite where
/// there is none.
double positiveRoot(double a, double b, double c) {
  const double root = std::sqrt(b * b + 4.0 * a * c);
  // Of both forms the one in which nothing cancels out.
  return b >= 0.0 ? 2.0 * c / (b + root) : (root - b) / (2.0 * a);
}

void straighten(Arc& arc, double resolution) {
  if (isStraight(arc, resolution)) arc.curve = 0.0;
}

class BiarcWriter {
 public:
  BiarcWriter(const Curve& curve, std::span<const double> checks, const CurveSettings& settings,
              Path& path)
      : curve_(curve),
        checks_(checks),
        settings_(settings),
        path_(path),
        allowed_(kAtSamples * settings.tolerance) {}

  /// Draws what lies between two cuts.
  void writePiece(double from, double to) {
    Part whole{from, to, curve_(from, Side::kAfter), curve_(to, Side::kBefore), 0};
    if (!begin(whole)) return;
    std::array<Part, kMostHalvings + 2> pending;  // the right halves, and the part at hand
    std::size_t count = 0;
    pending[count++] = whole;
    while (count > 0) {
      const Part part = pending[--count];
      if (written_ >= settings_.maxVertices) {
        report_.limitReached = true;
        lineTo(part.end.at);
      } else if (!write(part)) {
        const double half = part.from + 0.5 * (part.to - part.from);
        const CurveSample& between = inner_[kSamples / 2];
        pending[count++] = {half, part.to, between, part.end, part.halvings + 1};
        pending[count++] = {part.from, half, part.start, between, part.halvings + 1};
      }
    }
  }

  const CurveReport& report() const { return report_; }

 private:
  struct Part {
    double from;
    double to;
    CurveSample start;
    CurveSample end;
    int halvings;
  };

  /// Brings the path to the start of a piece, and that to the bits of the path. False if the piece
  /// cannot be drawn.
  bool begin(Part& piece) {
    if (!usable(piece.start.at) || !usable(piece.end.at)) {
      report_.unusable = true;
      return false;
    }
    if (path_.vertices.empty()) {
      path_.vertices.push_back({piece.start.at, 0.0});
    } else if (distance(path_.vertices.back().at, piece.start.at) >= settings_.resolution) {
      report_.gap = report_.gap || started_;
      lineTo(piece.start.at);
    }
    started_ = true;
    piece.start.at = path_.vertices.back().at;
    return true;
  }

  /// Draws a part that needs no halving, or can have no more; false for others.
  bool write(const Part& part) {
    known_ = 0;
    isUnusable_ = false;
    const bool isDone = writeLine(part) || writeBiarc(part);
    if (isUnusable_) report_.unusable = true;
    if (isDone) return true;
    if (!isUnusable_) {
      if (part.halvings < kMostHalvings) return false;
      report_.coarse = true;
    }
    lineTo(part.end.at);
    return true;
  }

  bool writeLine(const Part& part) {
    const ArcDistance line({part.start.at, part.end.at});
    if (!liesWithin(part, line, nullptr)) return false;
    lineTo(part.end.at);
    return true;
  }

  bool writeBiarc(const Part& part) {
    if (isUnusable_) return false;
    std::optional<Biarc> arcs = biarcBetween(part.start.at, unit(part.start.derivative),
                                             part.end.at, unit(part.end.derivative));
    if (!arcs) return false;
    straighten(arcs->first, settings_.resolution);
    straighten(arcs->second, settings_.resolution);
    const ArcDistance second(arcs->second);
    if (!liesWithin(part, ArcDistance(arcs->first), &second)) return false;
    arcTo(arcs->first.end, arcs->first.curve);
    arcTo(arcs->second.end, arcs->second.curve);
    return true;
  }

  /// A point within the part; each is worked out once.
  const CurveSample& sampleOf(const Part& part, std::size_t i) {
    if ((known_ >> i & 1U) == 0) {
      const double step = (part.to - part.from) / (kSamples + 1);
      // The one in the middle is where the part may be halved.
      inner_[i] = curve_(part.from + step * static_cast<double>(i + 1), Side::kAfter);
      known_ |= 1U << i;
      isUnusable_ = isUnusable_ || !usable(inner_[i].at);
    }
    return inner_[i];
  }

  /// Whether all samples and checks are near. What is not near is often seen in the middle already.
  bool liesWithin(const Part& part, const ArcDistance& first, const ArcDistance* second) {
    static constexpr std::array<std::size_t, kSamples> kOrder = {7, 3, 11, 1, 5,  9,  13, 0,
                                                                 2, 4, 6,  8, 10, 12, 14};
    const auto isNear = [&](Point p) {
      return first(p) <= allowed_ || (second != nullptr && (*second)(p) <= allowed_);
    };
    for (const std::size_t i : kOrder) {
      const Point at = sampleOf(part, i).at;
      if (isUnusable_ || !isNear(at)) return false;
    }
    auto check = std::upper_bound(checks_.begin(), checks_.end(), part.from);
    for (; check != checks_.end() && *check < part.to; ++check) {
      if (!isNear(curve_(*check, Side::kAfter).at)) return false;
    }
    return true;
  }

  void lineTo(Point end) { arcTo(end, 0.0); }

  void arcTo(Point end, double curve) {
    path_.vertices.back().curve = curve;
    path_.vertices.push_back({end, 0.0});
    ++written_;
  }

  const Curve& curve_;
  std::span<const double> checks_;
  const CurveSettings& settings_;
  Path& path_;
  double allowed_;
  CurveReport report_;
  std::array<CurveSample, kSamples> inner_{};
  unsigned known_ = 0;       ///< which of these are worked out for the part at hand, bit by bit
  bool isUnusable_ = false;  ///< one of them is
  std::size_t written_ = 0;
  bool started_ = false;
};

}  // namespace

std::optional<Biarc> biarcBetween(Point start, Point startDirection, Point end,
                                  Point endDirection) {
  const Point way = end - start;
  const Point bend = startDirection - endDirection;
  // The way less d times both directions is as long as 2 d.
  const double d =
      positiveRoot(dot(bend, bend), 2.0 * dot(way, startDirection + endDirection), dot(way, way));
  if (!(d > 0.0) || !usable(d) || startDirection == Point{} || endDirection == Point{}) {
    return std::nullopt;
  }
  const Point joint = middle(start, end) + bend * (0.5 * d);
  const Biarc arcs{arcAlong(start, startDirection, joint),
                   reversed(arcAlong(end, -endDirection, joint))};
  constexpr double kMost = 180.0;
  if (!(std::fabs(arcs.first.curve) < kMost) || !(std::fabs(arcs.second.curve) < kMost)) {
    return std::nullopt;
  }
  return arcs;
}

CurveReport appendBiarcs(const Curve& curve, std::span<const double> cuts,
                         std::span<const double> checks, const CurveSettings& settings,
                         Path& path) {
  BiarcWriter writer(curve, checks, settings, path);
  for (std::size_t i = 1; i < cuts.size(); ++i) writer.writePiece(cuts[i - 1], cuts[i]);
  return writer.report();
}

}  // namespace quillon::geometry
