#pragma once

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>
#include <numbers>
#include <vector>

#include "geometry/path.h"

namespace quillon::testing {

using Complex = std::complex<double>;

inline Complex complexOf(geometry::Point p) { return {p.x, p.y}; }
inline geometry::Point pointOf(Complex z) { return {z.real(), z.imag()}; }

/// Points of a line or an arc, close together, worked out from its centre.
inline std::vector<Complex> densePoints(geometry::Point start, geometry::Point end, double curve,
                                        int count) {
  const Complex a = complexOf(start);
  const Complex b = complexOf(end);
  const double angle = curve * std::numbers::pi / 180.0;
  std::vector<Complex> points;
  for (int i = 0; i <= count; ++i) {
    const double share = static_cast<double>(i) / count;
    if (curve == 0.0) {
      points.push_back(a + (b - a) * share);
    } else {
      const Complex centre = (b - a * std::polar(1.0, angle)) / (1.0 - std::polar(1.0, angle));
      points.push_back(centre + (a - centre) * std::polar(1.0, angle * share));
    }
  }
  return points;
}

inline double distanceToSegment(Complex p, Complex a, Complex b) {
  const double square = std::norm(b - a);
  if (square == 0.0) return std::abs(p - a);
  const double share = ((p - a) * std::conj(b - a)).real() / square;
  return std::abs(p - (a + (b - a) * std::clamp(share, 0.0, 1.0)));
}

/// A path as many short chords.
class DensePath {
 public:
  explicit DensePath(const geometry::Path& path, int chordsPerArc = 100) {
    const std::size_t count = path.vertices.size();
    for (std::size_t i = 0; i + (path.closed ? 0 : 1) < count; ++i) {
      const geometry::Vertex& from = path.vertices[i];
      const geometry::Vertex& to = path.vertices[(i + 1) % count];
      arcs_.push_back(
          densePoints(from.at, to.at, from.curve, from.curve == 0.0 ? 1 : chordsPerArc));
      double reach = 0.0;
      for (const Complex& point : arcs_.back()) {
        reach = std::max(reach, std::abs(point - arcs_.back().front()));
      }
      reaches_.push_back(reach);
    }
  }

  double distance(geometry::Point point) const {
    const Complex p = complexOf(point);
    double least = std::numeric_limits<double>::infinity();
    for (const auto& arc : arcs_) least = std::min(least, std::abs(p - arc.front()));
    for (std::size_t i = 0; i < arcs_.size(); ++i) {
      if (std::abs(p - arcs_[i].front()) - reaches_[i] > least) continue;
      for (std::size_t k = 1; k < arcs_[i].size(); ++k) {
        least = std::min(least, distanceToSegment(p, arcs_[i][k - 1], arcs_[i][k]));
      }
    }
    return least;
  }

  double length() const {
    double sum = 0.0;
    for (const auto& arc : arcs_) {
      for (std::size_t k = 1; k < arc.size(); ++k) sum += std::abs(arc[k] - arc[k - 1]);
    }
    return sum;
  }

 private:
  std::vector<std::vector<Complex>> arcs_;
  std::vector<double> reaches_;
};

}  // namespace quillon::testing
