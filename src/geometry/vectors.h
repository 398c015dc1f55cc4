#pragma once

#include <algorithm>
#include <cmath>

#include "geometry/point.h"

namespace quillon::geometry {

// Points as vectors. Lengths are worked out with square roots, which every system rounds alike.

constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
constexpr Point operator-(Point a) { return {-a.x, -a.y}; }
constexpr Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }

constexpr double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
/// Positive where b lies to the left of a.
constexpr double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
/// The vector turned by a quarter, counter-clockwise.
constexpr Point leftOf(Point v) { return {-v.y, v.x}; }
/// The vector turned by the angle of the unit vector `direction`.
constexpr Point turned(Point v, Point direction) {
  return {v.x * direction.x - v.y * direction.y, v.x * direction.y + v.y * direction.x};
}
constexpr Point middle(Point a, Point b) { return {0.5 * a.x + 0.5 * b.x, 0.5 * a.y + 0.5 * b.y}; }

/// Coordinates beyond this are of no drawing; their squares are finite all the same.
inline constexpr double kLargestCoordinate = 1e100;

inline bool usable(double number) { return std::fabs(number) <= kLargestCoordinate; }
/// False for points with a coordinate that is huge, infinite or not a number.
inline bool usable(Point p) { return usable(p.x) && usable(p.y); }

/// The length of a vector; infinite or NaN only where the vector is, or its length too large.
inline double norm(Point v) {
  const double largest = std::max(std::fabs(v.x), std::fabs(v.y));
  if (largest > 1e-140 && largest < 1e140) return std::sqrt(dot(v, v));
  if (!(largest > 0.0) || !std::isfinite(largest)) return largest + std::fabs(v.y);
  const Point scaled{v.x / largest, v.y / largest};
  return largest * std::sqrt(dot(scaled, scaled));
}

inline double distance(Point a, Point b) { return norm(b - a); }

/// The vector at length 1; (0 0) for one that has no direction.
inline Point unit(Point v) {
  const double length = norm(v);
  if (!(length > 0.0) || !std::isfinite(length)) return {};
  return {v.x / length, v.y / length};
}

}  // namespace quillon::geometry
