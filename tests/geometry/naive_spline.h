#pragma once

#include <cstddef>
#include <vector>

#include "geometry/uniform_spline.h"

namespace quillon::testing {

/// Open uniform knots, written out: `order` zeros, then 1, 2, …, then the last value `order` times.
inline std::vector<double> openUniformKnots(std::size_t count, std::size_t order) {
  std::vector<double> knots(order, 0.0);
  for (std::size_t i = order; i < count; ++i) knots.push_back(knots.back() + 1.0);
  knots.insert(knots.end(), order, knots.back() + 1.0);
  return knots;
}

/// The textbook Cox-de Boor recursion: exponential, but easy to check.
inline double naiveBasis(const std::vector<double>& knots, std::size_t i, std::size_t order,
                         double t) {
  if (order == 1) return knots[i] <= t && t < knots[i + 1] ? 1.0 : 0.0;
  double sum = 0.0;
  const double leftSpan = knots[i + order - 1] - knots[i];
  if (leftSpan > 0.0) sum += (t - knots[i]) / leftSpan * naiveBasis(knots, i, order - 1, t);
  const double rightSpan = knots[i + order] - knots[i + 1];
  if (rightSpan > 0.0) {
    sum += (knots[i + order] - t) / rightSpan * naiveBasis(knots, i + 1, order - 1, t);
  }
  return sum;
}

/// `samples` points of a spline, evenly spaced in the parameter.
inline std::vector<geometry::Point> naiveSpline(const std::vector<geometry::Point>& control,
                                                std::size_t order, std::size_t samples) {
  const std::vector<double> knots = openUniformKnots(control.size(), order);
  std::vector<geometry::Point> points;
  for (std::size_t s = 0; s + 1 < samples; ++s) {
    const double t = static_cast<double>(s) * knots.back() / static_cast<double>(samples - 1);
    geometry::Point point;
    for (std::size_t i = 0; i < control.size(); ++i) {
      const double weight = naiveBasis(knots, i, order, t);
      point.x += weight * control[i].x;
      point.y += weight * control[i].y;
    }
    points.push_back(point);
  }
  points.push_back(control.back());
  return points;
}

}  // namespace quillon::testing
