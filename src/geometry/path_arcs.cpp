#include "geometry/path_arcs.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "base/ranges.h"

namespace quillon::geometry {
namespace {

double halfSweep(const Edge& edge) { return radiansOf(edge.curve) / 2.0; }

/// A curve so small that the arc and its chord are the same doubles.
bool isStraight(const Edge& edge) { return std::fabs(edge.curve) < 1e-14; }

struct Sample {
  double at;
  double value;
};

/// Where a steady function is zero between two values of different signs: by secants, of which
/// every third halves the range, lest they creep.
template <typename Function>
double zeroBetween(const Function& function, Sample low, Sample high) {
  for (int round = 0; round < 200; ++round) {
    if (low.value == 0.0 || low.at == high.at) return low.at;
    if (high.value == 0.0) return high.at;
    double at = low.at + (high.at - low.at) * (low.value / (low.value - high.value));
    if (round % 3 == 2) at = 0.5 * (low.at + high.at);
    if (!(at > std::min(low.at, high.at) && at < std::max(low.at, high.at))) break;
    const Sample middle{at, function(at)};
    ((middle.value < 0.0) == (low.value < 0.0) ? low : high) = middle;
  }
  return std::fabs(low.value) < std::fabs(high.value) ? low.at : high.at;
}

}  // namespace

Point turned(Point v, double radians) {
  const double sine = std::sin(radians);
  const double cosine = std::cos(radians);
  return {v.x * cosine - v.y * sine, v.x * sine + v.y * cosine};
}

std::size_t edgeCount(const Path& path) {
  const std::size_t count = path.vertices.size();
  return path.closed || count == 0 ? count : count - 1;
}

Edge edgeAt(const Path& path, std::size_t index) {
  const Vertex& vertex = path.vertices[index];
  const std::size_t next = index + 1 == path.vertices.size() ? 0 : index + 1;
  return {vertex.at, path.vertices[next].at, vertex.curve};
}

Edge reversed(const Edge& edge) { return {edge.to, edge.from, -edge.curve}; }

bool isUsable(const Path& path) {
  return base::ranges::all_of(path.vertices, [](const Vertex& vertex) {
    return usable(vertex.at) && std::fabs(vertex.curve) < 360.0;
  });
}

Circle circleOf(const Edge& edge) {
  const Point chord = edge.to - edge.from;
  const double half = halfSweep(edge);
  const double sine = std::sin(half);
  const double toCentre = 0.5 * std::cos(half) / sine;
  return {edge.from + chord * 0.5 + leftOf(chord) * toCentre, 0.5 * norm(chord) / std::fabs(sine)};
}

Point pointAt(const Edge& edge, double fraction) {
  if (fraction <= 0.0) return edge.from;
  if (fraction >= 1.0) return edge.to;
  const Point chord = edge.to - edge.from;
  if (isStraight(edge)) return edge.from + chord * fraction;
  // The chord to the point is the whole one, turned and shortened.
  const double half = halfSweep(edge);
  return edge.from +
         turned(chord, -half * (1.0 - fraction)) * (std::sin(half * fraction) / std::sin(half));
}

Edge partOf(const Edge& edge, double first, double last) {
  return {pointAt(edge, first), pointAt(edge, last), edge.curve * (last - first)};
}

double lengthOf(const Edge& edge) {
  const double chord = norm(edge.to - edge.from);
  if (isStraight(edge)) return chord;
  const double half = halfSweep(edge);
  return chord * (half / std::sin(half));
}

double sagittaOf(const Edge& edge) {
  return 0.5 * norm(edge.to - edge.from) * std::tan(std::fabs(halfSweep(edge)) / 2.0);
}

Point directionAt(const Edge& edge, double fraction) {
  const Point chord = edge.to - edge.from;
  const double length = norm(chord);
  if (length == 0.0) return {};
  if (edge.curve == 0.0) return chord * (1.0 / length);
  return turned(chord * (1.0 / length), halfSweep(edge) * (2.0 * fraction - 1.0));
}

double fractionOf(const Edge& edge, Point on) {
  const Point chord = edge.to - edge.from;
  const Point to = on - edge.from;
  if (isStraight(edge)) return std::clamp(dot(to, chord) / dot(chord, chord), 0.0, 1.0);
  // Seen from the point, the chords to both ends are as the sines of the angles that they cut off.
  const double half = std::fabs(halfSweep(edge));
  const double before = norm(to);
  const double after = norm(edge.to - on);
  const double angle = std::atan2(before * std::sin(half), after + before * std::cos(half));
  return std::clamp(angle / half, 0.0, 1.0);
}

std::vector<double> fractionsWithDirection(const Edge& edge, double direction) {
  std::vector<double> fractions;
  if (isStraight(edge) || edge.from == edge.to) return fractions;
  const Point chord = edge.to - edge.from;
  const double half = halfSweep(edge);
  const double start = std::atan2(chord.y, chord.x) - half;
  const double low = std::min(start, start + 2.0 * half);
  const double high = std::max(start, start + 2.0 * half);
  const auto first = static_cast<int>(std::ceil((low - direction) / std::numbers::pi));
  for (int turn = first; direction + turn * std::numbers::pi < high; ++turn) {
    const double fraction = (direction + turn * std::numbers::pi - start) / (2.0 * half);
    if (fraction > 0.0 && fraction < 1.0) fractions.push_back(fraction);
  }
  base::ranges::sort(fractions);
  return fractions;
}

std::vector<double> fractionsOnLine(const Edge& edge, Point on, Point direction) {
  const auto heightAt = [&](double fraction) {
    return cross(direction, pointAt(edge, fraction) - on);
  };
  std::vector<double> crossings;
  // Between these the height only grows or only shrinks.
  std::vector<double> stops = fractionsWithDirection(edge, std::atan2(direction.y, direction.x));
  stops.push_back(1.0);
  double from = 0.0;
  for (const double to : stops) {
    const double low = heightAt(from);
    const double high = heightAt(to);
    if ((low < 0.0) != (high < 0.0)) {
      crossings.push_back(isStraight(edge) ? low / (low - high)
                                           : zeroBetween(heightAt, {from, low}, {to, high}));
    }
    from = to;
  }
  return crossings;
}

Box boundsOf(const Edge& edge) {
  Box box;
  box.add(edge.from);
  box.add(edge.to);
  if (isStraight(edge)) return box;
  for (const double direction : {0.0, std::numbers::pi / 2.0}) {
    for (const double fraction : fractionsWithDirection(edge, direction)) {
      box.add(pointAt(edge, fraction));
    }
  }
  return box;
}

double distanceTo(const Edge& edge, Point p) {
  const double toEnds = std::min(norm(p - edge.from), norm(p - edge.to));
  if (edge.from == edge.to) return toEnds;
  if (isStraight(edge)) {
    return std::min(toEnds, norm(p - pointAt(edge, fractionOf(edge, p))));
  }
  const Circle circle = circleOf(edge);
  const Point out = p - circle.centre;
  const double length = norm(out);
  if (length == 0.0) return circle.radius;
  const double fraction = fractionOf(edge, circle.centre + out * (circle.radius / length));
  return std::min(toEnds, norm(p - pointAt(edge, fraction)));
}

}  // namespace quillon::geometry
