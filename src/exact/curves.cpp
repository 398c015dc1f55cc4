#include "exact/curves.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "base/number_text.h"
#include "exact/points.h"
#include "exact/whole_numbers.h"

namespace quillon::exact {
namespace {

using base::numberValue;

/// ARC and CIRCLE; angles in degrees.
struct CentredValues {
  Point centre;
  double elevation = 0.0;
  double radius = 0.0;
  double start = 0.0;
  double end = 360.0;
};

CentredValues readCentred(const Item& item, const Canvas& canvas) {
  CentredValues values;
  readNumbers(canvas.groupsOf(item), {{10, &values.centre.x},
                                      {20, &values.centre.y},
                                      {30, &values.elevation},
                                      {40, &values.radius},
                                      {50, &values.start},
                                      {51, &values.end}});
  return values;
}

struct EllipseGroups {
  Point centre;
  double elevation = 0.0;
  Point major;
  double majorZ = 0.0;
  double ratio = 1.0;
  double start = 0.0;
  double end = 6.283185307179586;
};

EllipseGroups readEllipse(const Item& item, const Canvas& canvas) {
  EllipseGroups values;
  readNumbers(canvas.groupsOf(item), {{10, &values.centre.x},
                                      {20, &values.centre.y},
                                      {30, &values.elevation},
                                      {11, &values.major.x},
                                      {21, &values.major.y},
                                      {31, &values.majorZ},
                                      {40, &values.ratio},
                                      {41, &values.start},
                                      {42, &values.end}});
  return values;
}

/// The second half axis: N x major, N at length 1.
struct MinorAxis {
  Point foot;  ///< as seen from above
  double z;
};

MinorAxis minorOf(const Entity& entity, const EllipseGroups& values) {
  const double length =
      std::sqrt(entity.normalX * entity.normalX + entity.normalY * entity.normalY +
                entity.normalZ * entity.normalZ);
  const double nx = length > 0.0 ? entity.normalX / length : 0.0;
  const double ny = length > 0.0 ? entity.normalY / length : 0.0;
  const double nz = length > 0.0 ? entity.normalZ / length : 1.0;
  return {{(ny * values.majorZ - nz * values.major.y) * values.ratio,
           (nz * values.major.x - nx * values.majorZ) * values.ratio},
          (nx * values.major.y - ny * values.major.x) * values.ratio};
}

struct SplineGroups {
  int degree = 3;
  int flags = 0;
  std::vector<double> knots;
  std::vector<double> weights;
  std::vector<Point> controlPoints;
  std::vector<double> controlHeights;
  std::vector<Point> fitPoints;
  std::vector<double> fitHeights;  ///< within an oblique block; else none
  Point startTangent{};
  Point endTangent{};
  double startRise = 0.0;  ///< of the tangents
  double endRise = 0.0;
};

SplineGroups readSpline(const Item& item, const Canvas& canvas) {
  SplineGroups values;
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) {
    const auto number = [&group] { return numberValue(group.value); };
    switch (group.code) {
      case 70:
        values.flags = cutInteger(number());
        break;
      case 71:
        values.degree = std::clamp(cutInteger(number()), -1, 1000);
        break;
      case 40:
        values.knots.push_back(number());
        break;
      case 41:
        values.weights.push_back(number());
        break;
      case 10:
        values.controlPoints.push_back({number(), 0.0});
        values.controlHeights.push_back(0.0);
        break;
      case 30:
        if (!values.controlHeights.empty()) values.controlHeights.back() = number();
        break;
      case 20:
        if (!values.controlPoints.empty()) values.controlPoints.back().y = number();
        break;
      case 11:
        values.fitPoints.push_back({number(), 0.0});
        if (item.depth != Point{}) values.fitHeights.push_back(0.0);
        break;
      case 31:
        if (!values.fitHeights.empty()) values.fitHeights.back() = number();
        break;
      case 21:
        if (!values.fitPoints.empty()) values.fitPoints.back().y = number();
        break;
      case 12:
        values.startTangent.x = number();
        break;
      case 22:
        values.startTangent.y = number();
        break;
      case 32:
        values.startRise = number();
        break;
      case 13:
        values.endTangent.x = number();
        break;
      case 23:
        values.endTangent.y = number();
        break;
      case 33:
        values.endRise = number();
        break;
      case 100:
        // A HELIX is a SPLINE with its own values after it.
        if (group.value == "AcDbHelix") return values;
        break;
      default:
        break;
    }
  }
  return values;
}

void drawFitSpline(const Item& item, SplineGroups values, Canvas& canvas) {
  constexpr int kClosed = 1;
  const PlacedPoints placed = placedPoints(item, std::move(values.fitPoints), values.fitHeights);
  const auto directionOf = [&](Point tangent, double rise) {
    if (placed.areSeen) tangent = item.map.turn(tangent) + item.depth * rise;
    return tangent != Point{} ? std::optional(tangent) : std::nullopt;
  };
  geometry::FitEnds ends;
  ends.closed = (values.flags & kClosed) != 0;
  ends.startDirection = directionOf(values.startTangent, values.startRise);
  ends.endDirection = directionOf(values.endTangent, values.endRise);
  const geometry::FitSpline spline(placed.points, ends);
  if (!spline.usable()) return canvas.lose(item, LossRule::NoSize);
  canvas.stroke(item, spline, placed.map);
}

}  // namespace

void drawLine(const Item& item, Canvas& canvas) {
  const auto& ends = item.entity.ends;
  const Point from{numberValue(ends[0]), numberValue(ends[1])};
  const Point to{numberValue(ends[2]), numberValue(ends[3])};
  double fromZ = 0.0;
  double toZ = 0.0;
  // Heights count within an oblique block alone.
  if (item.depth != Point{}) readNumbers(canvas.groupsOf(item), {{30, &fromZ}, {31, &toZ}});
  if (!geometry::usable(from) || !geometry::usable(to)) {
    return canvas.lose(item, LossRule::UnusableNumbers);
  }
  const Point start = item.seen(from, fromZ);
  const Point end = item.seen(to, toZ);
  // A line without length is how some programs mark a drill.
  if (pointsAreHoles(canvas.options()) && geometry::usable(start) &&
      geometry::distance(start, end) < canvas.measures().resolution) {
    return canvas.hole(item, start, canvas.options().pointDrill);
  }
  canvas.segment(item, start, end);
}

void drawArc(const Item& item, Canvas& canvas) {
  const CentredValues values = readCentred(item, canvas);
  if (values.radius == 0.0) return canvas.lose(item, LossRule::NoSize);
  canvas.stroke(item, geometry::circularArc(values.centre, values.radius, values.start, values.end),
                item.objectMap(values.elevation));
}

void drawCircle(const Item& item, Canvas& canvas) {
  const CentredValues values = readCentred(item, canvas);
  if (values.radius == 0.0) return canvas.lose(item, LossRule::NoSize);
  canvas.stroke(item, geometry::circle(values.centre, values.radius),
                item.objectMap(values.elevation));
}

void drawEllipse(const Item& item, Canvas& canvas) {
  const EllipseGroups values = readEllipse(item, canvas);
  const MinorAxis minor = minorOf(item.entity, values);
  if (item.depth == Point{}) {
    return canvas.stroke(
        item,
        geometry::ellipticArc(values.centre, values.major, minor.foot, values.start, values.end),
        item.map);
  }
  const Point major = item.map.turn(values.major) + item.depth * values.majorZ;
  canvas.stroke(item,
                geometry::ellipticArc(item.seen(values.centre, values.elevation), major,
                                      item.map.turn(minor.foot) + item.depth * minor.z,
                                      values.start, values.end),
                Affine{});
}

void drawSpline(const Item& item, Canvas& canvas) {
  SplineGroups values = readSpline(item, canvas);
  if (values.controlPoints.size() >= 2) {
    for (std::size_t i = 0; i < values.controlPoints.size(); ++i) {
      values.controlPoints[i] = item.seen(values.controlPoints[i], values.controlHeights[i]);
    }
    canvas.stroke(item, geometry::Spline(values.degree, values.controlPoints,
                                         std::move(values.knots), values.weights));
    return;
  }
  drawFitSpline(item, std::move(values), canvas);
}

}  // namespace quillon::exact
