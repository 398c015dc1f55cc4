#include "geometry/biarcs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "geometry/degrees.h"
#include "geometry/near_arc.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

/// What is not near is often seen in the middle already, or at the first points of this order.
constexpr std::array<std::size_t, kPointsInPart> kOrder = {7, 3, 11, 1, 5,  9,  13, 0,
                                                           2, 4, 6,  8, 10, 12, 14};
constexpr std::size_t kMiddle = kPointsInPart / 2;
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

/// Where two arcs meet, and how far each of their ends is from where its tangents meet.
struct Joint {
  Point at;
  double reach;
};

/// That of the arcs between two points with these directions (unit vectors).
std::optional<Joint> jointBetween(Point start, Point startDirection, Point end,
                                  Point endDirection) {
  const Point way = end - start;
  const Point bend = startDirection - endDirection;
  // The way less d times both directions is as long as 2 d.
  const double d =
      positiveRoot(dot(bend, bend), 2.0 * dot(way, startDirection + endDirection), dot(way, way));
  if (!(d > 0.0) || !usable(d) || startDirection == Point{} || endDirection == Point{}) {
    return std::nullopt;
  }
  return Joint{middle(start, end) + bend * (0.5 * d), d};
}

/// The arcs that meet in this joint; none where one of them would turn by 180 degrees or more.
std::optional<Biarc> biarcThrough(Point joint, Point start, Point startDirection, Point end,
                                  Point endDirection) {
  const Biarc arcs{arcAlong(start, startDirection, joint),
                   reversed(arcAlong(end, -endDirection, joint))};
  constexpr double kMost = 180.0;
  if (!(std::fabs(arcs.first.curve) < kMost) || !(std::fabs(arcs.second.curve) < kMost)) {
    return std::nullopt;
  }
  return arcs;
}

class BiarcWriter {
 public:
  BiarcWriter(const Curve& curve, std::span<const double> checks, const CurveSettings& settings,
              Path& path, CurvePoints* points)
      : curve_(curve),
        checks_(checks),
        settings_(settings),
        path_(path),
        points_(points),
        pointsSize_(points != nullptr ? points->size() : 0.0),
        allowed_(kAtSamples * settings.tolerance) {
    if (path.vertices.empty()) return;
    drawn_[drawnCount_++] = path.vertices.back();
    path.vertices.pop_back();
  }

  /// Adds what has been drawn to the path.
  CurveReport finish() {
    handOver();
    return report_;
  }

  /// Draws what lies between two cuts.
  void writePiece(double from, double to) {
    End start = endOf(curve_(from, Side::kAfter));
    stops_[0] = {to, endOf(curve_(to, Side::kBefore)), 0};
    if (!begin(start.sample.at, stops_[0].end.sample.at)) return;
    for (std::size_t count = 1; count > 0;) {
      Stop& stop = stops_[count - 1];
      const Part part{from, stop.at, start, stop.end};
      if (written_ >= settings_.maxVertices) {
        report_.limitReached = true;
        lineTo(stop.end.sample.at);
      } else if (!write(part, stop.halvings)) {
        ++stop.halvings;
        stops_[count++] = {from + 0.5 * (stop.at - from), endOf(inner_[kMiddle]), stop.halvings};
        continue;
      }
      from = stop.at;
      start = stop.end;
      --count;
    }
  }

 private:
  struct End {
    CurveSample sample;
    Point direction;  ///< of the curve; a unit vector
  };
  /// Where a part ends that has been halved this often.
  struct Stop {
    double at;
    End end;
    int halvings;
  };
  /// A part of the curve, which the path has reached.
  struct Part {
    double from;
    double to;
    const End& start;
    const End& end;
  };
  /// How near a part is to the line between its ends, and to both arcs.
  struct Verdict {
    Nearness line = Nearness::Unclear;
    Nearness arcs = Nearness::Unclear;
    std::optional<Joint> joint{};  ///< of the arcs, if it was looked for
    /// Whether the arcs are lines; once they are known to be near.
    bool isFirstLine = false;
    bool isSecondLine = false;
  };

  static End endOf(const CurveSample& sample) { return {sample, unit(sample.derivative)}; }

  /// Where the part at hand starts, to the bits of the path.
  Point start() const { return drawn_[drawnCount_ - 1].at; }

  /// Brings the path to the start of a piece. False if the piece cannot be drawn.
  bool begin(Point at, Point end) {
    if (!usable(at) || !usable(end)) {
      report_.unusable = true;
      return false;
    }
    if (drawnCount_ == 0) {
      drawn_[drawnCount_++] = {at, 0.0};
    } else if (distance(start(), at) >= settings_.resolution) {
      report_.gap = report_.gap || started_;
      lineTo(at);
    }
    started_ = true;
    // Of these nothing is larger than they tell.
    if (points_ != nullptr) measure(start());
    return true;
  }

  /// Draws a part that needs no halving, or can have no more; false for others, whose middle then
  /// is known.
  bool write(const Part& part, int halvings) {
    known_ = 0;
    isUnusable_ = false;
    if (writeIfClear(part)) return true;
    if (isUnusable_) report_.unusable = true;
    if (!isUnusable_) {
      if (halvings < kMostHalvings) return false;
      report_.coarse = true;
    }
    lineTo(part.end.sample.at);
    return true;
  }

  /// Draws the part if a line or two arcs are near enough; each sample is looked at closely only
  /// where that matters.
  bool writeIfClear(const Part& part) {
    const Verdict verdict = lookAt(part);
    if (verdict.line == Nearness::Near || (verdict.line == Nearness::Unclear && isLine(part))) {
      lineTo(part.end.sample.at);
      return true;
    }
    const bool isUsable = !isUnusable_ && usable(middle_);
    if (isUsable && verdict.arcs == Nearness::Near && writeBiarc(part, verdict)) return true;
    // The sample in the middle is needed to halve the part.
    sampleOf(part, kMiddle);
    return !isUnusable_ && verdict.arcs == Nearness::Unclear && writeBiarc(part, verdict);
  }

  /// What can be told of the part at a first look.
  Verdict lookAt(const Part& part) {
    const Point from = start();
    const Point to = part.end.sample.at;
    areDivided_ = false;
    middle_ = points_ == nullptr ? sampleOf(part, kMiddle).at
                                 : points_->middle(part.from, part.to, part.start.sample);
    if (points_ == nullptr) measure(to);
    if (!limits_ || from == to) return {};
    if (!isSurelyBeside(from, to, limits_->distant)) {
      const NearArc straight = NearArc::line(from, to, *limits_);
      const Nearness line = nearnessOf(part, straight, straight);
      if (line != Nearness::Far) return {line, Nearness::Unclear};
    }
    return lookAtArcs(part);
  }

  /// Coordinates from where the path has come up to this point.
  void measure(Point to) {
    const Point from = start();
    size_ = std::max(
        {std::fabs(from.x), std::fabs(from.y), std::fabs(to.x), std::fabs(to.y), pointsSize_});
    limits_ = NearLimits::around(allowed_, size_);
  }

  Verdict lookAtArcs(const Part& part) {
    const Point from = start();
    const Point to = part.end.sample.at;
    Verdict verdict{Nearness::Far, Nearness::Unclear,
                    jointBetween(from, part.start.direction, to, part.end.direction)};
    // The place of the joint has to be exact in proportion to the arcs.
    constexpr double kLeastReach = 1e-7;
    if (!verdict.joint || !(verdict.joint->reach > kLeastReach * size_)) return verdict;
    const auto [joint, reach] = *verdict.joint;
    // Where they meet, the tangents of the ends have come together.
    const Point tangent =
        ((to - from) * (1.0 / reach) - (part.start.direction + part.end.direction)) * 0.5;
    const auto first = NearArc::between(from, joint, {part.start.direction, tangent}, reach,
                                        settings_.resolution, *limits_);
    const auto second = NearArc::between(joint, to, {tangent, part.end.direction}, reach,
                                         settings_.resolution, *limits_);
    if (!first || !second) return verdict;
    verdict.arcs = nearnessOf(part, *first, *second);
    verdict.isFirstLine = first->isLine();
    verdict.isSecondLine = second->isLine();
    return verdict;
  }

  /// Whether the middle of the part at hand is clearly farther away from the line.
  bool isSurelyBeside(Point from, Point to, double distant) const {
    const Point way = to - from;
    const double across = cross(way, middle_ - from);
    return across * across > distant * distant * dot(way, way);
  }

  /// That of the first point that is near to neither arc.
  Nearness nearnessOf(const Part& part, const NearArc& first, const NearArc& second) {
    const auto nearnessOfPoint = [&](Point p, bool isInFirstHalf) {
      // Near to the one that is likely is near enough.
      const Nearness likely = isInFirstHalf ? first(p) : second(p);
      if (likely == Nearness::Near) return likely;
      const Nearness other = isInFirstHalf ? second(p) : first(p);
      return likely == Nearness::Unclear && other == Nearness::Far ? likely : other;
    };
    for (std::size_t n = 0; n < kPointsInPart; ++n) {
      if (n == 1 && points_ != nullptr) {
        divide(part);
        if (NearArc::areBeside(first, second, inPart_)) break;
      }
      const std::size_t i = kOrder[n];
      const Nearness nearness = nearnessOfPoint(n == 0 ? middle_ : pointOf(part, i), i <= kMiddle);
      if (nearness != Nearness::Near) return nearness;
    }
    auto check = std::upper_bound(checks_.begin(), checks_.end(), part.from);
    for (; check != checks_.end() && *check < part.to; ++check) {
      const Point at = points_ != nullptr ? points_->at(*check) : curve_(*check, Side::kAfter).at;
      const Nearness nearness = nearnessOfPoint(at, *check - part.from < part.to - *check);
      if (nearness != Nearness::Near) return nearness;
    }
    return Nearness::Near;
  }

  void divide(const Part& part) {
    if (areDivided_) return;
    areDivided_ = true;
    points_->divide(part.from, part.to, part.start.sample, inPart_);
  }

  bool isLine(const Part& part) {
    return liesWithin(part, ArcDistance({start(), part.end.sample.at}), nullptr);
  }

  bool writeBiarc(const Part& part, const Verdict& verdict) {
    if (verdict.arcs == Nearness::Near) {
      writeNearBiarc(part, verdict);
      return true;
    }
    const auto joint = verdict.joint ? verdict.joint
                                     : jointBetween(start(), part.start.direction,
                                                    part.end.sample.at, part.end.direction);
    if (!joint) return false;
    std::optional<Biarc> arcs = biarcThrough(joint->at, start(), part.start.direction,
                                             part.end.sample.at, part.end.direction);
    if (!arcs) return false;
    straighten(arcs->first, settings_.resolution);
    straighten(arcs->second, settings_.resolution);
    const ArcDistance second(arcs->second);
    if (!liesWithin(part, ArcDistance(arcs->first), &second)) return false;
    arcTo(arcs->first.end, arcs->first.curve);
    arcTo(arcs->second.end, arcs->second.curve);
    return true;
  }

  /// Arcs that are known to turn by less than 180 degrees, and whether they are lines.
  void writeNearBiarc(const Part& part, const Verdict& verdict) {
    const Point joint = verdict.joint->at;
    const Point end = part.end.sample.at;
    const double first =
        verdict.isFirstLine ? 0.0 : arcAlong(start(), part.start.direction, joint).curve;
    const double second =
        verdict.isSecondLine ? 0.0 : -arcAlong(end, -part.end.direction, joint).curve;
    arcTo(joint, first);
    arcTo(end, second);
  }

  /// A point within the part, but for some rounding.
  Point pointOf(const Part& part, std::size_t i) {
    return points_ == nullptr ? sampleOf(part, i).at : inPart_[i];
  }

  /// The same as a sample, which is taken once.
  const CurveSample& sampleOf(const Part& part, std::size_t i) {
    if ((known_ >> i & 1U) == 0) {
      const double step = (part.to - part.from) / (kPointsInPart + 1);
      // The one in the middle is where the part may be halved.
      inner_[i] = curve_(part.from + step * static_cast<double>(i + 1), Side::kAfter);
      known_ |= 1U << i;
      isUnusable_ = isUnusable_ || !usable(inner_[i].at);
    }
    return inner_[i];
  }

  /// Whether all samples and checks are near.
  bool liesWithin(const Part& part, const ArcDistance& first, const ArcDistance* second) {
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
    drawn_[drawnCount_ - 1].curve = curve;
    if (drawnCount_ == drawn_.size()) handOver();
    drawn_[drawnCount_++] = {end, 0.0};
    ++written_;
  }

  void handOver() {
    const auto end = drawn_.begin() + static_cast<std::ptrdiff_t>(drawnCount_);
    path_.vertices.insert(path_.vertices.end(), drawn_.begin(), end);
    drawnCount_ = 0;
  }

  const Curve& curve_;
  std::span<const double> checks_;
  const CurveSettings& settings_;
  Path& path_;
  CurvePoints* points_;
  double pointsSize_;
  double allowed_;
  std::optional<NearLimits> limits_;  ///< of the part at hand
  double size_ = 0.0;                 ///< likewise, of its coordinates
  CurveReport report_;
  /// What the path ends with once it is handed over, which gives most paths no more room than they
  /// take.
  std::array<Vertex, 96> drawn_;
  std::size_t drawnCount_ = 0;
  std::array<Stop, kMostHalvings + 2> stops_;  ///< of the parts to be drawn, the last one first
  // Points of the part at hand as samples, and which of them are known, as bits; and from points_.
  std::array<CurveSample, kPointsInPart> inner_{};
  unsigned known_ = 0;
  PartPoints inPart_;
  bool areDivided_ = false;  ///< inPart_ has those of the part at hand
  Point middle_;             ///< of the part at hand, but for some rounding
  bool isUnusable_ = false;  ///< one of the samples is
  std::size_t written_ = 0;
  bool started_ = false;
};

}  // namespace

std::optional<Biarc> biarcBetween(Point start, Point startDirection, Point end,
                                  Point endDirection) {
  const auto joint = jointBetween(start, startDirection, end, endDirection);
  if (!joint) return std::nullopt;
  return biarcThrough(joint->at, start, startDirection, end, endDirection);
}

CurveReport appendBiarcs(const Curve& curve, std::span<const double> cuts,
                         std::span<const double> checks, const CurveSettings& settings, Path& path,
                         CurvePoints* points) {
  BiarcWriter writer(curve, checks, settings, path, points);
  for (std::size_t i = 1; i < cuts.size(); ++i) writer.writePiece(cuts[i - 1], cuts[i]);
  return writer.finish();
}

}  // namespace quillon::geometry
