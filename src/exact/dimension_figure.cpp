#include "exact/dimension_figure.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

using geometry::cross;
using geometry::dot;
using geometry::leftOf;
using geometry::unit;

/// Directions whose angle has a smaller sine are parallel.
constexpr double kParallel = 1e-9;

Path dimensionLine(Point from, Point to) { return {{{from}, {to}}, false}; }

/// From a measured point to a little beyond the dimension line; nothing where they are too close.
void addExtension(DimensionFigure& figure, Point from, Point to, const DimensionStyle& style) {
  const double length = geometry::distance(from, to) + style.overshoot;
  const Point way = unit(to - from);
  if (way == Point{} || !(style.offset < length)) return;
  figure.lines.push_back(dimensionLine(from + way * style.offset, to + way * style.overshoot));
}

/// The same line of text from the bottom or the right of the drawing.
double readableAngle(double degrees) {
  constexpr double kSlack = 1e-6;
  if (degrees > 90.0 + kSlack) return degrees - 180.0;
  return degrees <= -90.0 + kSlack ? degrees + 180.0 : degrees;
}

/// Above the middle of the dimension line, unless the dimension says where.
void placeDimensionText(DimensionFigure& figure, const DimensionValues& values,
                        const DimensionStyle& style, Point middle, Point direction) {
  figure.textAngle = values.textAngle;
  if (values.textAngle == 0.0) figure.textAngle = readableAngle(geometry::directionOf(direction));
  const Point up = leftOf(geometry::unitVector(figure.textAngle));
  figure.textPlace = values.textPlace.value_or(middle + up * (style.gap + 0.5 * style.textHeight));
}

std::optional<DimensionFigure> linearFigure(const DimensionValues& values,
                                            const DimensionStyle& style) {
  const Point along = values.type == DimensionType::Linear ? geometry::unitVector(values.angle)
                                                           : unit(values.second - values.first);
  if (along == Point{}) return {};
  Point aside = values.oblique != 0.0 ? geometry::unitVector(values.oblique) : leftOf(along);
  if (std::fabs(cross(along, aside)) < kParallel) aside = leftOf(along);
  const auto onLine = [&](Point p) {
    return values.place + along * (cross(p - values.place, aside) / cross(along, aside));
  };
  const Point from = onLine(values.first);
  const Point to = onLine(values.second);
  DimensionFigure figure;
  if (!style.hidesFirstExtension) addExtension(figure, values.first, from, style);
  if (!style.hidesSecondExtension) addExtension(figure, values.second, to, style);
  figure.lines.push_back(dimensionLine(from, to));
  const Point way = unit(to - from);
  if (way != Point{}) {
    figure.firstArrows.push_back({from, -way});
    figure.secondArrows.push_back({to, way});
  }
  figure.measure = geometry::distance(from, to);
  placeDimensionText(figure, values, style, geometry::middle(from, to), along);
  return figure;
}

/// One side of an angle: a ray from its centre, and how far along it the measured points are.
struct AngleSide {
  Point direction;
  double nearest = 0.0;
  double farthest = 0.0;
};

struct MeasuredAngle {
  Point centre;
  double radius = 0.0;
  AngleSide first;
  AngleSide second;
  bool startsAtSecond = false;  ///< counter-clockwise
};

AngleSide sideThrough(Point centre, Point direction, Point a, Point b) {
  const auto [low, high] = std::minmax({dot(a - centre, direction), dot(b - centre, direction)});
  return {direction, std::max(low, 0.0), std::max(high, 0.0)};
}

/// The one of the four angles between two lines that the arc's point is in.
std::optional<MeasuredAngle> angleOfLines(const DimensionValues& values) {
  const Point first = unit(values.second - values.first);
  const Point second = unit(values.third - values.place);
  const double sine = cross(first, second);
  if (std::fabs(sine) < kParallel) return {};
  MeasuredAngle angle;
  angle.centre = values.first + first * (cross(values.place - values.first, second) / sine);
  const Point arc = values.arc - angle.centre;
  angle.radius = geometry::norm(arc);
  const bool turnsFirst = cross(arc, second) / sine < 0.0;
  const bool turnsSecond = cross(first, arc) / sine < 0.0;
  angle.first = sideThrough(angle.centre, turnsFirst ? -first : first, values.first, values.second);
  angle.second =
      sideThrough(angle.centre, turnsSecond ? -second : second, values.third, values.place);
  angle.startsAtSecond = cross(angle.first.direction, angle.second.direction) < 0.0;
  return angle;
}

double sweepOf(Point from, Point to) {
  return geometry::sweepBetween(geometry::directionOf(from), geometry::directionOf(to));
}

std::optional<MeasuredAngle> angleOfPoints(const DimensionValues& values) {
  const Point centre = values.third;
  const Point first = unit(values.first - centre);
  const Point second = unit(values.second - centre);
  const Point arc = values.place - centre;
  if (first == Point{} || second == Point{} || arc == Point{}) return {};
  MeasuredAngle angle{
      centre, geometry::norm(arc), {}, {}, sweepOf(first, arc) > sweepOf(first, second)};
  angle.first = sideThrough(centre, first, values.first, values.first);
  angle.second = sideThrough(centre, second, values.second, values.second);
  return angle;
}

/// From the measured point that is nearest to the arc, if the arc is beyond them all.
void addSide(DimensionFigure& figure, const MeasuredAngle& angle, const AngleSide& side,
             const DimensionStyle& style) {
  if (side.nearest <= angle.radius && angle.radius <= side.farthest) return;
  const double from = angle.radius < side.nearest ? side.nearest : side.farthest;
  addExtension(figure, angle.centre + side.direction * from,
               angle.centre + side.direction * angle.radius, style);
}

std::optional<DimensionFigure> angularFigure(const DimensionValues& values,
                                             const DimensionStyle& style) {
  const std::optional<MeasuredAngle> angle =
      values.type == DimensionType::Angular ? angleOfLines(values) : angleOfPoints(values);
  if (!angle || !(angle->radius > 0.0) || !geometry::usable(angle->centre)) return {};
  const Point start = (angle->startsAtSecond ? angle->second : angle->first).direction;
  const Point end = (angle->startsAtSecond ? angle->first : angle->second).direction;
  DimensionFigure figure;
  figure.measured = Measured::Angle;
  figure.measure = sweepOf(start, end);
  if (!(figure.measure < 360.0)) return {};
  if (!style.hidesFirstExtension) addSide(figure, *angle, angle->first, style);
  if (!style.hidesSecondExtension) addSide(figure, *angle, angle->second, style);
  const Point from = angle->centre + start * angle->radius;
  const Point to = angle->centre + end * angle->radius;
  figure.lines.push_back({{{from, figure.measure}, {to}}, false});
  figure.firstArrows.push_back({from, -leftOf(start)});
  figure.secondArrows.push_back({to, leftOf(end)});
  if (angle->startsAtSecond) std::swap(figure.firstArrows, figure.secondArrows);
  Point ray = geometry::unitVector(geometry::directionOf(start) + 0.5 * figure.measure);
  const Point middle = angle->centre + ray * angle->radius;
  if (values.textPlace && *values.textPlace != angle->centre) {
    ray = unit(*values.textPlace - angle->centre);
  }
  placeDimensionText(figure, values, style, middle, -leftOf(ray));
  return figure;
}

/// Of circles: through both its points, the second of which is on the circle.
std::optional<DimensionFigure> radialFigure(const DimensionValues& values,
                                            const DimensionStyle& style) {
  const Point way = unit(values.third - values.place);
  if (way == Point{}) return {};
  DimensionFigure figure;
  figure.lines.push_back(dimensionLine(values.place, values.third));
  figure.measured = Measured::Radius;
  figure.firstArrows.push_back({values.third, way});
  if (values.type == DimensionType::Diameter) {
    figure.measured = Measured::Diameter;
    figure.secondArrows.push_back({values.place, -way});
  }
  figure.measure = geometry::distance(values.place, values.third);
  placeDimensionText(figure, values, style, geometry::middle(values.place, values.third), way);
  return figure;
}

std::optional<DimensionFigure> ordinateFigure(const DimensionValues& values,
                                              const DimensionStyle& style) {
  const Point x = geometry::unitVector(-values.horizontal);
  const Point from = values.first - values.place;
  DimensionFigure figure;
  figure.lines.push_back(dimensionLine(values.first, values.second));
  figure.measure = std::fabs(dot(from, values.measuresX ? x : leftOf(x)));
  placeDimensionText(figure, values, style, values.second, values.measuresX ? leftOf(x) : x);
  return figure;
}

}  // namespace

std::optional<DimensionFigure> dimensionFigure(const DimensionValues& values,
                                               const DimensionStyle& style) {
  switch (values.type) {
    case DimensionType::Linear:
    case DimensionType::Aligned:
      return linearFigure(values, style);
    case DimensionType::Angular:
    case DimensionType::AngularByPoints:
      return angularFigure(values, style);
    case DimensionType::Diameter:
    case DimensionType::Radius:
      return radialFigure(values, style);
    case DimensionType::Ordinate:
      return ordinateFigure(values, style);
  }
  return {};
}

}  // namespace quillon::exact
