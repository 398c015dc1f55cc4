#include "preview/differences_finder.h"

#include <algorithm>
#include <cmath>

#include "base/ranges.h"
#include "geometry/vectors.h"

namespace quillon::preview {
namespace {

using geometry::Box;
using geometry::Point;
using Kind = DifferenceStroke::Kind;

/// Comparisons of a stroke with a stroke, or of a point with an edge, at most. Only drawings with
/// very many long lines that are all different reach it.
constexpr std::uint64_t kMostChecks = 1'000'000'000;

/// Across the longer side of an area that the other does not fill.
constexpr double kHatchLines = 12.0;

}  // namespace

DifferenceFinder::DifferenceFinder(const DifferenceShapes& own, DifferenceShapes& other,
                                   double tolerance, const geometry::StopCheck& stop,
                                   std::size_t mostPieces)
    : own_(own), other_(other), tolerance_(tolerance), stop_(stop), mostPieces_(mostPieces) {}

/// By what was compared: a single line may be near to any number of others.
bool DifferenceFinder::goesOn() {
  constexpr std::uint64_t kUnasked = 1U << 14U;
  if (isFull() || checks_ > kMostChecks) isCut_ = true;
  if (++checks_ >= askAt_) {
    askAt_ = checks_ + kUnasked;
    isStopped_ = isStopped_ || stop_();
  }
  return !isCut_ && !isStopped_;
}

void DifferenceFinder::find(bool areWidthsMeant) {
  areWidthsMeant_ = areWidthsMeant;
  for (const DifferenceStroke& stroke : own_.strokes.all()) {
    if (!goesOn()) return;
    if (!other_.strokes.has(stroke)) findStroke(stroke);
  }
  for (const DifferenceArea& area : own_.fills.all()) {
    if (!goesOn()) return;
    if (!other_.fills.has(area)) findArea(area);
  }
}

DifferenceSide DifferenceFinder::take() {
  return DifferenceSide(std::move(pieces_), areas_, stop_);
}

void DifferenceFinder::findStroke(const DifferenceStroke& stroke) {
  other_.strokes.index(stop_);
  findLine(stroke.from, stroke.to, stroke.kind == Kind::Edge);
  // A wide line has to be as wide; letters are as wide as they are high.
  if (!areWidthsMeant_ || stroke.kind == Kind::Text || stroke.half <= tolerance_) return;
  const Point aside = geometry::leftOf(geometry::unit(stroke.to - stroke.from)) * stroke.half;
  if (aside == Point{}) return;
  findLine(stroke.from + aside, stroke.to + aside, false);
  findLine(stroke.from - aside, stroke.to - aside, false);
}

void DifferenceFinder::findLine(Point from, Point to, bool isEdge) {
  const double length = geometry::distance(from, to);
  const double part = other_.strokes.partLength();
  constexpr double kMostParts = 4096.0;
  const double wanted = part > 0.0 ? std::clamp(std::ceil(length / part), 1.0, kMostParts) : 1.0;
  const auto count = static_cast<int>(wanted);
  const Point way = to - from;
  Point start = from;
  for (int i = 1; i <= count; ++i) {
    if (!goesOn()) return;
    const Point end = i == count ? to : from + way * (i / wanted);
    findPart(start, end, isEdge);
    start = end;
  }
}

void DifferenceFinder::findPart(Point from, Point to, bool isEdge) {
  Box box;
  box.add(from);
  box.add(to);
  covered_.clear();
  other_.strokes.visit(widened(box, tolerance_), [&](const DifferenceStroke& stroke) {
    ++checks_;
    const LinePart part = coveredPart(from, to, stroke, tolerance_ + stroke.half);
    if (part.isEmpty()) return true;
    covered_.push_back(part);
    return part.first > 0.0 || part.last < 1.0;
  });
  base::ranges::sort(covered_, {}, &LinePart::first);
  const Point way = to - from;
  const double length = geometry::norm(way);
  double covered = 0.0;  // up to here
  bool isAny = false;
  const auto gapUntil = [&](double next) {
    // Between strokes that meet there may be a little that neither reaches.
    const bool isWhole = !isAny && next >= 1.0;
    if (!isWhole && (next - covered) * length <= 0.5 * tolerance_) return;
    addUncovered(from + way * covered, next >= 1.0 ? to : from + way * next, isEdge);
  };
  for (const LinePart& part : covered_) {
    if (part.first > covered) gapUntil(part.first);
    isAny = true;
    covered = std::max(covered, part.last);
  }
  if (covered < 1.0 || !isAny) gapUntil(1.0);
}

/// A line that no stroke of the other covers. As it crosses none either, it is inside an area of
/// the other as a whole, or not at all.
void DifferenceFinder::addUncovered(Point from, Point to, bool isEdge) {
  if (!other_.fills.contains(geometry::middle(from, to), checks_))
    return addPiece(pieces_, from, to);
  if (isEdge && !isSeam(from, to)) addPiece(overfilled_, from, to);
}

bool DifferenceFinder::isSeam(Point from, Point to) const {
  const Point aside = geometry::leftOf(geometry::unit(to - from)) * (2.0 * tolerance_);
  const Point middle = geometry::middle(from, to);
  return own_.fills.contains(middle + aside, checks_) &&
         own_.fills.contains(middle - aside, checks_);
}

/// Adds to the last piece where this one goes on with it.
void DifferenceFinder::addPiece(std::vector<SceneLine>& pieces, Point from, Point to) {
  if (!pieces.empty() && pieces.back().to == from) {
    const Point before = pieces.back().to - pieces.back().from;
    const Point way = to - from;
    const double sizes = geometry::norm(before) * geometry::norm(way);
    const bool isStraight =
        geometry::dot(before, way) > 0.0 && std::fabs(geometry::cross(before, way)) <= 1e-9 * sizes;
    if (isStraight) {
      pieces.back().to = to;
      return;
    }
  }
  if (isFull()) {
    isCut_ = true;
  } else {
    pieces.push_back({from, to});
  }
}

void DifferenceFinder::addOverfilled(const std::vector<SceneLine>& edges) {
  for (const SceneLine& edge : edges) addPiece(pieces_, edge.from, edge.to);
}

bool DifferenceFinder::isFilled(Point point) const {
  if (other_.fills.contains(point, checks_)) return true;
  bool isCovered = false;
  other_.strokes.visit(widened({point, point}, tolerance_), [&](const DifferenceStroke& stroke) {
    ++checks_;
    // An area is filled up to its edge, which may be off by the tolerance.
    if (stroke.half <= tolerance_ && stroke.kind != Kind::Edge) return true;
    isCovered = !coveredPart(point, point, stroke, tolerance_ + stroke.half).isEmpty();
    return !isCovered;
  });
  return isCovered;
}

/// Hatches an area where the other does not fill it.
void DifferenceFinder::findArea(const DifferenceArea& area) {
  const Box& box = area.box();
  const double height = box.high.y - box.low.y;
  const double width = box.high.x - box.low.x;
  const double step = std::max(height, width) / kHatchLines;
  // Slivers are told by their outline alone.
  if (std::min(height, width) <= 2.0 * tolerance_ || !(step > 0.0)) return;
  other_.strokes.index(stop_);
  const int lines = std::max(static_cast<int>(height / step), 2);  // kHatchLines at most
  bool isAny = false;
  for (int line = 0; line < lines && goesOn(); ++line) {
    const double y = box.low.y + height * ((line + 0.5) / lines);
    area.crossingsAt(y, crossings_, checks_);
    int winding = 0;
    for (std::size_t i = 0; i + 1 < crossings_.size() && goesOn(); ++i) {
      winding += crossings_[i].turn;
      if (winding != 0 && hatch(crossings_[i].x, crossings_[i + 1].x, y, step)) isAny = true;
    }
  }
  if (isAny) ++areas_;
}

bool DifferenceFinder::hatch(double left, double right, double y, double step) {
  const double parts = std::clamp(std::ceil((right - left) / step), 1.0, kHatchLines + 1.0);
  const auto count = static_cast<int>(parts);
  bool isAny = false;
  for (int i = 0; i < count; ++i) {
    const double start = left + (right - left) * (i / parts);
    const double end = i + 1 == count ? right : left + (right - left) * ((i + 1) / parts);
    if (end - start <= 2.0 * tolerance_ || isFilled({0.5 * (start + end), y})) continue;
    addPiece(pieces_, {start, y}, {end, y});
    isAny = true;
  }
  return isAny;
}

}  // namespace quillon::preview
