#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <utility>

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

/// A line, or an arc of less than half a turn, from its tangents.
class NearArc {
 public:
  static NearArc line(Point start, Point end, const NearLimits& limits) {
    const Point along = unit(end - start);
    return {start, end, {along, along}, 0.0, limits};
  }
  /// The arc that leaves a point in this direction (a unit vector), or meets it, and has its other
  /// end there; a line where its sagitta is below half of the resolution. None where it is close to
  /// half a turn, or to that sagitta.
  static std::optional<NearArc> leaving(Point start, Point direction, Point end, double resolution,
                                        const NearLimits& limits) {
    return between(start, end, direction, true, resolution, limits);
  }
  static std::optional<NearArc> meeting(Point start, Point end, Point direction, double resolution,
                                        const NearLimits& limits) {
    return between(start, end, direction, false, resolution, limits);
  }

  Nearness operator()(Point p) const {
    const Point fromStart = p - start_;
    const Point fromEnd = p - end_;
    if (dot(fromStart, startTangent_) >= 0.0 && dot(fromEnd, endTangent_) <= 0.0) {
      // Twice the distance to the side, and that squared over the radius.
      const double excess = dot(fromStart, fromStart) * curvature_ + dot(fromStart, side_);
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

  /// Whether these points, two or more, are all near and beside the arc, none beyond its ends. It
  /// takes less time than one by one.
  bool areBeside(const double* x, const double* y, std::size_t count) const {
    auto are = Lanes{} == Lanes{};
    for (std::size_t i = 0; i < count; i += 2) {
      const std::size_t at = std::min(i, count - 2);
      const Lanes px = lanesAt(x + at);
      const Lanes py = lanesAt(y + at);
      const Lanes outX = px - start_.x;
      const Lanes outY = py - start_.y;
      are &= outX * startTangent_.x + outY * startTangent_.y >= 0.0;
      are &= (px - end_.x) * endTangent_.x + (py - end_.y) * endTangent_.y <= 0.0;
      const Lanes excess =
          (outX * outX + outY * outY) * curvature_ + (outX * side_.x + outY * side_.y);
      are &= excess >= nearBend_ - nearExcess_;
      are &= excess <= nearBend_ + nearExcess_;
    }
    return (are[0] & are[1]) != 0;
  }

 private:
  /// Two numbers that are worked on together.
  using Lanes __attribute__((vector_size(2 * sizeof(double)))) = double;

  static Lanes lanesAt(const double* numbers) {
    Lanes lanes{};
    std::memcpy(&lanes, numbers, sizeof lanes);
    return lanes;
  }

  NearArc(Point start, Point end, const std::pair<Point, Point>& tangents, double curvature,
          const NearLimits& limits)
      : start_(start),
        end_(end),
        startTangent_(tangents.first),
        endTangent_(tangents.second),
        side_(leftOf(startTangent_) * (curvature > 0.0 ? -2.0 : 2.0)),
        curvature_(std::fabs(curvature)),
        nearExcess_(2.0 * limits.nearby),
        farExcess_(2.0 * limits.distant),
        nearBend_(limits.nearby * limits.nearby * curvature_),
        farBend_(limits.distant * limits.distant * curvature_) {}

  static std::optional<NearArc> between(Point start, Point end, Point direction, bool leaves,
                                        double resolution, const NearLimits& limits) {
    const double chord = norm(end - start);
    if (!(chord > 0.0)) return std::nullopt;
    const Point along = (end - start) * (1.0 / chord);
    // Of half of the curve.
    const double cosine = dot(along, direction);
    const double sine = leaves ? cross(direction, along) : cross(along, direction);
    if (!(cosine > 1e-6)) return std::nullopt;
    const double overSagitta = chord * std::fabs(sine) / ((1.0 + cosine) * resolution);
    if (overSagitta < 1.0 - 1e-6) return line(start, end, limits);
    const double curvature = 2.0 * sine / chord;
    const bool isTight = !(std::fabs(curvature) * limits.distant < 0.5);
    if (isTight || !(overSagitta > 1.0 + 1e-6)) return std::nullopt;
    const Point mirrored = along * (2.0 * cosine) - direction;
    const auto tangents = leaves ? std::pair(direction, mirrored) : std::pair(mirrored, direction);
    return NearArc(start, end, tangents, curvature, limits);
  }

  Point start_;
  Point end_;
  Point startTangent_;
  Point endTangent_;
  Point side_;  ///< outwards at the start, of length 2
  double curvature_;
  double nearExcess_;
  double farExcess_;
  double nearBend_;
  double farBend_;
};

}  // namespace quillon::geometry
