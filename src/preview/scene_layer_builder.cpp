#include "preview/scene_layer_builder.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/encoding.h"
#include "preview/figure.h"
#include "preview/lettering.h"

namespace quillon::preview {
namespace {

using geometry::Arc;
using geometry::Box;
using geometry::Point;

/// How many things are added between two questions whether to stop.
constexpr std::size_t kObjectsUnasked = 1U << 14U;

bool isBoxInSight(const Box& box) {
  return !box.empty() && isInSight(box.low) && isInSight(box.high);
}

/// A curve that makes an arc of an edge; 0 for one that has to be straight.
float curveOf(Point from, Point to, float curve) {
  if (curve == 0.0F || !(std::fabs(curve) < 360.0F) || from == to) return 0.0F;
  const double radius = geometry::radius({from, to, curve});
  return geometry::usable(radius) && radius > 0.0 ? curve : 0.0F;
}

Box boxOf(const SceneLine& line, float width) {
  Box box;
  box.add(line.from);
  box.add(line.to);
  return widened(box, width / 2.0);
}

Box boxOf(const SceneArc& arc) { return widened(geometry::bounds(arc.arc), arc.width / 2.0); }

Box boxOf(const SceneCircle& circle) {
  const double reach = circle.radius + (circle.filled ? 0.0 : circle.width / 2.0);
  return widened({circle.centre, circle.centre}, reach);
}

Box boxOf(std::span<const SceneCorner> corners, float width) {
  Box box;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const SceneCorner& to = corners[(i + 1) % corners.size()];
    box.add(geometry::bounds({corners[i].at, to.at, corners[i].curve}));
  }
  return widened(box, width / 2.0);
}

/// Puts things in the order that their tree wants.
template <typename Thing, typename BoxOfThing>
void sort(SceneThings<Thing>& all, const BoxOfThing& box, const geometry::StopCheck& stop) {
  const std::vector<std::uint32_t> order = all.tree.build(
      all.things.size(), [&](std::size_t i) { return box(all.things[i]); }, stop);
  std::vector<Thing> sorted;
  sorted.reserve(order.size());
  for (const std::uint32_t thing : order) sorted.push_back(std::move(all.things[thing]));
  all.things = std::move(sorted);
}

}  // namespace

float SceneLayerBuilder::widthOf(double width) const {
  if (!(width > 0.0) || !isInSight(width)) return 0.0F;
  return static_cast<float>(width * millimetres_);
}

bool SceneLayerBuilder::add(const eagle::RecordedLayer& layer, const ScenePlace& place,
                            base::Encoding encoding, const geometry::StopCheck& stop) {
  std::size_t added = 0;
  const auto isOver = [&] { return ++added % kObjectsUnasked == 0 && stop(); };
  if (layer_.lines_.empty()) layer_.lines_.reserve(layer.wires.size());
  if (layer_.widths_.empty()) layer_.widths_.reserve(layer.wires.size());
  for (const eagle::RecordedWire& wire : layer.wires) {
    if (isOver()) return false;
    addWire(wire, place);
  }
  for (const eagle::RecordedCircle& circle : layer.circles) {
    if (isOver()) return false;
    addCircle(circle, place);
  }
  for (const eagle::RecordedArea& area : layer.areas) {
    if (isOver()) return false;
    addArea(layer, area, place);
  }
  for (const eagle::RecordedText& text : layer.texts) {
    if (isOver()) return false;
    addText(text, place, encoding);
  }
  return !stop();
}

void SceneLayerBuilder::addWire(const eagle::RecordedWire& wire, const ScenePlace& place) {
  const Point from = place.map(wire.from);
  const Point to = place.map(wire.to);
  if (!isInSight(from) || !isInSight(to)) return;
  const SceneLine line{from * millimetres_, to * millimetres_};
  const float width = widthOf(wire.width);
  const float curve = curveOf(line.from, line.to, wire.curve);
  if (curve == 0.0F) {
    layer_.lines_.push_back(line);
    layer_.widths_.push_back(width);
  } else if (isBoxInSight(geometry::bounds({from, to, curve}))) {
    layer_.arcs_.things.push_back({{line.from, line.to, curve}, width});
  }
}

void SceneLayerBuilder::addCircle(const eagle::RecordedCircle& circle, const ScenePlace& place) {
  const Point centre = place.map(circle.centre);
  const double radius = std::fabs(circle.radius);
  if (!isBoxInSight(widened({centre, centre}, radius))) return;
  layer_.circles_.things.push_back(
      {centre * millimetres_, radius * millimetres_, widthOf(circle.width), circle.filled});
}

void SceneLayerBuilder::addHole(const eagle::RecordedHole& hole, const ScenePlace& place) {
  addCircle({hole.centre, hole.drill / 2.0, 0.0F, false}, place);
}

void SceneLayerBuilder::addArea(const eagle::RecordedLayer& layer, const eagle::RecordedArea& area,
                                const ScenePlace& place) {
  if (area.count == 0) return;
  const std::size_t first = layer_.corners_.size();
  for (std::size_t i = 0; i < area.count; ++i) {
    const eagle::RecordedCorner& corner = layer.corners[area.first + i];
    const Point at = place.map(corner.at);
    const Point next = place.map(layer.corners[area.first + (i + 1) % area.count].at);
    const float curve = curveOf(at, next, corner.curve);
    if (!isBoxInSight(geometry::bounds({at, next, curve}))) {
      layer_.corners_.resize(first);
      return;
    }
    layer_.corners_.push_back({at * millimetres_, curve});
  }
  layer_.areas_.things.push_back({static_cast<std::uint32_t>(first),
                                  static_cast<std::uint32_t>(area.count), widthOf(area.width)});
}

void SceneLayerBuilder::addText(const eagle::RecordedText& text, const ScenePlace& place,
                                base::Encoding encoding) {
  constexpr double kTurn = 360.0;
  const Point at = place.map(text.at);
  if (!isInSight(at) || !isInSight(text.size)) return;
  eagle::RecordedText placed{.at = at * millimetres_,
                             .size = text.size * millimetres_,
                             .degrees = text.degrees,
                             .mirrored = text.mirrored,
                             .spin = text.spin || place.spin,
                             .align = text.align,
                             .content = base::toUtf8(text.content, encoding)};
  // A mirrored text turns the other way, as it is mirrored after the turn.
  if (place.degrees != 0.0) {
    placed.degrees += text.mirrored ? -place.degrees : place.degrees;
    placed.degrees = std::fmod(placed.degrees, kTurn);
    if (placed.degrees < 0.0) placed.degrees += kTurn;
  }
  Box box;
  for (const Point point : letteringOf(placed, placed.content).points) box.add(point);
  if (!isBoxInSight(box)) return;
  textBoxes_.push_back(widened(box, std::fabs(placed.size) * kPenWidth / 2.0));
  layer_.texts_.things.push_back(std::move(placed));
}

void SceneLayerBuilder::finishLines(const geometry::StopCheck& stop) {
  std::vector<SceneLine>& lines = layer_.lines_;
  std::vector<float>& widths = layer_.widths_;
  const std::vector<std::uint32_t> order = layer_.lineTree_.build(
      lines.size(), [&](std::size_t i) { return boxOf(lines[i], widths[i]); }, stop);
  std::vector<SceneLine> sortedLines(order.size());
  std::vector<float> sortedWidths(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) {
    sortedLines[i] = lines[order[i]];
    sortedWidths[i] = widths[order[i]];
  }
  lines = std::move(sortedLines);
  widths = std::move(sortedWidths);
}

SceneLayer SceneLayerBuilder::finish(const geometry::StopCheck& stop) {
  finishLines(stop);
  const auto simpleBox = [](const auto& thing) { return boxOf(thing); };
  sort(layer_.arcs_, simpleBox, stop);
  sort(layer_.circles_, simpleBox, stop);
  const std::span<const SceneCorner> corners(layer_.corners_);
  sort(
      layer_.areas_,
      [&](const SceneLayer::Area& area) {
        return boxOf(corners.subspan(area.first, area.count), area.width);
      },
      stop);
  const eagle::RecordedText* const firstText = layer_.texts_.things.data();
  sort(
      layer_.texts_,
      [&](const eagle::RecordedText& text) {
        return textBoxes_[static_cast<std::size_t>(&text - firstText)];
      },
      stop);
  layer_.corners_.shrink_to_fit();
  for (const SceneTree* const tree : {&layer_.lineTree_, &layer_.arcs_.tree, &layer_.circles_.tree,
                                      &layer_.areas_.tree, &layer_.texts_.tree}) {
    if (!tree->bounds().empty()) layer_.bounds_.add(tree->bounds());
  }
  return std::move(layer_);
}

}  // namespace quillon::preview
