#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>

#include "geometry/curve.h"
#include "geometry/point.h"
#include "geometry/vectors.h"

namespace quillon::geometry {

// Whether points are near to arcs, told without trigonometry or roots where rounding does not
// matter. Few points are so close to the limit that it does.

enum class Nearness : std::uint8_t { Near, Far, Unclear };

/// Limits of a distance, on both sides of what is allowed.
struct NearLimits {
  double nearby;   ///< surely allowed
  double distant;  ///< surely not, beyond this

  /// None where rounding coordinates up to this size matters too much.
  static std::optional<NearLimits> around(double allowed, double size) {
    const double doubt = 1e-6 * allowed + 1e-11 * size;
    if (!(doubt < 0.1 * allowed)) return std::nullopt;
    return NearLimits{allowed - doubt, allowed + doubt};
  }
};

/// Two unit vectors.
struct Tangents {
  Point start;
  Point end;
};

/// A line, or an arc of less than half a turn, from its tangents.
class NearArc {
 public:
  static NearArc line(Point start, Point end, const NearLimits& limits) {
    const Point along = unit(end - start);
    return {start, end, {along, along}, 0.0, limits};
  }
  /// The arc with these tangents, which meet in a point that is `reach` away from both of its ends;
  /// a line where its sagitta is below half of the resolution. None where it is close to half a
  /// turn, or to that sagitta.
  static std::optional<NearArc> between(Point start, Point end, const Tangents& tangents,
                                        double reach, double resolution, const NearLimits& limits) {
    constexpr double kLeastCosine = -0.99;
    const double more = 1.0 + dot(tangents.start, tangents.end);
    if (!(more > 1.0 + kLeastCosine)) return std::nullopt;
    // Of half of the turn; and the chord squared.
    const double tangent = cross(tangents.start, tangents.end) / more;
    const double square = 2.0 * reach * reach * more;
    const double doubt = limits.distant - limits.nearby;
    // Tangents of a quarter of the turn are no less than this times those of half of it, up to 1.
    constexpr double kLeastPart = 0.414;
    const double least = kLeastPart * kLeastPart * square * std::min(tangent * tangent, 1.0);
    if (!(least > (resolution + doubt) * (resolution + doubt))) {
      const double twoSagittas =
          std::sqrt(square) * std::fabs(tangent) / (1.0 + std::sqrt(1.0 + tangent * tangent));
      if (twoSagittas < resolution - doubt) return line(start, end, limits);
      if (!(twoSagittas > resolution + doubt)) return std::nullopt;
    }
    const double curvature = tangent / reach;
    if (!(std::fabs(curvature) * limits.distant < 0.5)) return std::nullopt;
    return NearArc(start, end, tangents, curvature, limits);
  }

  bool isLine() const { return curvature_ == 0.0; }

  Nearness operator()(Point p) const {
    const Point fromStart = p - start_;
    const Point fromEnd = p - end_;
    if (dot(fromStart, startTangent_) >= 0.0 && dot(fromEnd, endTangent_) <= 0.0) {
      // Twice the distance to the side, and that squared over the radius.
      const double excess =
          dot(fromStart, fromStart) * curvature_ + cross(startTangent_, fromStart) * side_;
      if (excess >= -nearExcess_ + nearBend_ && excess <= nearExcess_ + nearBend_) {
        return Nearness::Near;
      }
      const bool isFar = excess < -farExcess_ + farBend_ || excess > farExcess_ + farBend_;
      return isFar ? Nearness::Far : Nearness::Unclear;
    }
    const double square = std::min(dot(fromStart, fromStart), dot(fromEnd, fromEnd));
    if (square <= 0.25 * nearExcess_ * nearExcess_) return Nearness::Near;
    return square > 0.25 * farExcess_ * farExcess_ ? Nearness::Far : Nearness::Unclear;
  }

  /// Whether all points of a part but the one in the middle are surely near and beside the arcs,
  /// those of its first half the first one. It takes less time than one by one.
  static bool areBeside(const NearArc& first, const NearArc& second, const PartPoints& points) {
    // The second one is looked at from its end.
    const Lanes startX = {first.start_.x, second.end_.x};
    const Lanes startY = {first.start_.y, second.end_.y};
    const Lanes alongX = {first.startTangent_.x, -second.endTangent_.x};
    const Lanes alongY = {first.startTangent_.y, -second.endTangent_.y};
    const Lanes side = {first.side_, -second.side_};
    const Lanes curvature = {first.curvature_, second.curvature_};
    Lanes leastAlong = kAnything;
    Lanes mostSquare = -kAnything;
    Lanes leastExcess = kAnything;
    Lanes mostExcess = -kAnything;
    Lanes sum{};
    for (std::size_t i = 0; i + 1 < kPointsInPart; i += 2) {
      const Lanes outX = lanesAt(points.x.data() + i) - startX;
      const Lanes outY = lanesAt(points.y.data() + i) - startY;
      const Lanes square = outX * outX + outY * outY;
      const Lanes along = outX * alongX + outY * alongY;
      const Lanes excess = square * curvature + (outY * alongX - outX * alongY) * side;
      leastAlong = along < leastAlong ? along : leastAlong;
      mostSquare = square > mostSquare ? square : mostSquare;
      leastExcess = excess < leastExcess ? excess : leastExcess;
      mostExcess = excess > mostExcess ? excess : mostExcess;
      // What is no number would be overlooked by the others.
      sum += square;
    }
    return std::min(leastAlong[0], leastAlong[1]) >= 0.0 && std::isfinite(sum[0] + sum[1]) &&
           first.areWithin(mostSquare[0], leastExcess[0], mostExcess[0]) &&
           second.areWithin(mostSquare[1], leastExcess[1], mostExcess[1]);
  }

 private:
  /// Two numbers that are worked on together.
  using Lanes __attribute__((vector_size(2 * sizeof(double)))) = double;

  static constexpr double kMore = 1.0 + 1e-9;
  static constexpr Lanes kAnything = {std::numeric_limits<double>::infinity(),
                                      std::numeric_limits<double>::infinity()};

  static Lanes lanesAt(const double* numbers) {
    Lanes lanes{};
    std::memcpy(&lanes, numbers, sizeof lanes);
    return lanes;
  }

  /// Of points past the start: up to which square of the distance from there, and with what excess.
  bool areWithin(double mostSquare, double leastExcess, double mostExcess) const {
    // What is near to the circle and past the start is beyond the end only if it is farther from
    // the start than the end is, but for the limit.
    const double chordSquare = dot(end_ - start_, end_ - start_);
    const double farthest = chordSquare * (1.0 - kMore * 0.5 * nearExcess_ * curvature_);
    return mostSquare <= farthest && leastExcess >= nearBend_ - nearExcess_ &&
           mostExcess <= nearBend_ + nearExcess_;
  }

  NearArc(Point start, Point end, const Tangents& tangents, double curvature,
          const NearLimits& limits)
      : start_(start),
        end_(end),
        startTangent_(tangents.start),
        endTangent_(tangents.end),
        side_(curvature > 0.0 ? -2.0 : 2.0),
        curvature_(std::fabs(curvature)),
        nearExcess_(2.0 * limits.nearby),
        farExcess_(2.0 * limits.distant),
        nearBend_(limits.nearby * limits.nearby * curvature_),
        farBend_(limits.distant * limits.distant * curvature_) {}

  Point start_;
  Point end_;
  Point startTangent_;
  Point endTangent_;
  double side_;  ///< 2 where outwards is to the left; -2 where it is to the right
  double curvature_;
  double nearExcess_;
  double farExcess_;
  double nearBend_;
  double farBend_;
};

}  // namespace quillon::geometry
