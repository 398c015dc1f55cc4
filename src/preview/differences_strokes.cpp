#include "preview/differences_strokes.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/ranges.h"
#include "geometry/vectors.h"

namespace quillon::preview {
namespace {

using geometry::Box;
using geometry::Point;

Box boxOf(const DifferenceStroke& stroke) {
  Box box;
  box.add(stroke.from);
  box.add(stroke.to);
  return widened(box, stroke.half);
}

void join(LinePart& part, const LinePart& other) {
  if (other.isEmpty()) return;
  part = part.isEmpty()
             ? other
             : LinePart{std::min(part.first, other.first), std::max(part.last, other.last)};
}

/// The part of a line within a circle around a point.
LinePart withinDisc(Point from, Point way, Point centre, double reach) {
  const Point offset = from - centre;
  const double a = geometry::dot(way, way);
  const double c = geometry::dot(offset, offset) - reach * reach;
  if (a == 0.0) return c <= 0.0 ? LinePart{0.0, 1.0} : LinePart{1.0, 0.0};
  const double b = geometry::dot(way, offset);
  const double root = b * b - a * c;
  if (root < 0.0) return {1.0, 0.0};
  const double side = std::sqrt(root);
  return {std::max((-b - side) / a, 0.0), std::min((-b + side) / a, 1.0)};
}

}  // namespace

LinePart coveredPart(Point from, Point to, const DifferenceStroke& stroke, double reach) {
  // What is within reach of a stroke is convex, so that what a line has of it is in one: of the
  // band beside the stroke and the discs around its ends.
  const Point way = to - from;
  LinePart part = withinDisc(from, way, stroke.from, reach);
  const Point along = geometry::unit(stroke.to - stroke.from);
  if (along == Point{}) return part;
  join(part, withinDisc(from, way, stroke.to, reach));
  const Point offset = from - stroke.from;
  const double length = geometry::distance(stroke.from, stroke.to);
  const double across = geometry::cross(along, offset);
  const double acrossWay = geometry::cross(along, way);
  const double forward = geometry::dot(along, offset);
  const double forwardWay = geometry::dot(along, way);
  LinePart band;
  band.narrow(reach + across, acrossWay);
  band.narrow(reach - across, -acrossWay);
  band.narrow(forward, forwardWay);
  band.narrow(length - forward, -forwardWay);
  join(part, band);
  return part;
}

DifferenceStrokes::DifferenceStrokes(std::vector<DifferenceStroke> strokes, double tolerance,
                                     const geometry::StopCheck& stop)
    : keysOf_(tolerance), strokes_(std::move(strokes)) {
  double length = 0.0;
  keys_.reserve(strokes_.size());
  for (const DifferenceStroke& stroke : strokes_) {
    length += geometry::distance(stroke.from, stroke.to);
    keys_.push_back(keyOf(stroke));
  }
  if (stop()) return;
  base::ranges::sort(keys_);
  // With parts of the mean length there are at most twice as many as strokes.
  if (!strokes_.empty()) partLength_ = length / static_cast<double>(strokes_.size());
}

std::uint64_t DifferenceStrokes::keyOf(const DifferenceStroke& stroke) const {
  return keysOf_.line(stroke.from, stroke.to) + keysOf_.half(stroke.half);
}

bool DifferenceStrokes::has(const DifferenceStroke& stroke) const {
  return base::ranges::binary_search(keys_, keyOf(stroke));
}

void DifferenceStrokes::index(const geometry::StopCheck& stop) {
  if (isIndexed_) return;
  constexpr std::size_t kPartsUnasked = 1U << 16U;
  isIndexed_ = true;
  std::vector<DifferenceStroke> parts;
  parts.reserve(strokes_.size());
  std::size_t askAt = kPartsUnasked;
  for (const DifferenceStroke& stroke : strokes_) {
    const double length = geometry::distance(stroke.from, stroke.to);
    const double wanted = length > partLength_ ? std::ceil(length / partLength_) : 1.0;
    const auto count = static_cast<std::size_t>(wanted);
    const Point way = stroke.to - stroke.from;
    Point from = stroke.from;
    for (std::size_t i = 1; i <= count; ++i) {
      const double part = static_cast<double>(i) / wanted;
      const Point to = i == count ? stroke.to : stroke.from + way * part;
      parts.push_back({from, to, stroke.half, stroke.kind});
      from = to;
    }
    if (parts.size() < askAt) continue;
    if (stop()) return;
    askAt = parts.size() + kPartsUnasked;
  }
  const std::vector<std::uint32_t> order = tree_.build(
      parts.size(), [&](std::size_t i) { return boxOf(parts[i]); }, stop);
  parts_.reserve(order.size());
  for (const std::uint32_t part : order) parts_.push_back(parts[part]);
}

void DifferenceStrokes::dropIndex() {
  isIndexed_ = false;
  parts_ = {};
  tree_ = {};
}

}  // namespace quillon::preview
