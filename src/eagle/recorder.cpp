#include "eagle/recorder.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace quillon::eagle {
namespace {

Point centreOf(const Arc& arc) {
  return {(arc.start.x + arc.opposite.x) / 2.0, (arc.start.y + arc.opposite.y) / 2.0};
}

double directionFrom(Point from, Point to) { return std::atan2(to.y - from.y, to.x - from.x); }
}  // namespace

double curveOf(const Arc& arc) {
  constexpr double kTurn = 2.0 * std::numbers::pi;
  const Point centre = centreOf(arc);
  double angle = directionFrom(centre, arc.end) - directionFrom(centre, arc.start);
  if (arc.sense == Sense::Clockwise) angle = -angle;
  if (angle < 0.0) angle += kTurn;
  const double degrees = angle * 360.0 / kTurn;
  return arc.sense == Sense::Clockwise ? -degrees : degrees;
}

Point endOf(const Arc& arc) {
  const Point centre = centreOf(arc);
  const double reach = distance(centre, arc.end);
  if (reach == 0.0) return arc.end;
  const double factor = distance(centre, arc.start) / reach;
  return {centre.x + (arc.end.x - centre.x) * factor, centre.y + (arc.end.y - centre.y) * factor};
}

Recorder::Recorder(const Coordinates& coordinates)
    : area_(coordinates), sheet_(&recording_.sheets.emplace_back()) {
  sheets_.emplace("", sheet_);
  recording_.unit = coordinates.unit;
  recording_.limit = area_.limit();
}

void Recorder::wire(const Wire& wire) { addWire(wire.from, wire.to, wire.curve, wire.width); }

void Recorder::arc(const Arc& arc) {
  addWire(arc.start, endOf(arc), curveOf(arc), arc.width.value_or(0.0));
}

void Recorder::circle(const Circle& circle) {
  RecordedCircle drawn;
  drawn.centre = placed(circle.centre);
  drawn.radius = distance(circle.centre, circle.onCircle);
  if (circle.kind != CircleKind::RingAsBefore) lastWidth_ = circle.width;
  // A width that the user has set is not known; it is hardly ever 0.
  drawn.width = static_cast<float>(lastWidth_.value_or(0.0));
  // EAGLE fills a circle of width 0, whichever command set that width.
  drawn.filled = lastWidth_ == 0.0;
  onLayer().circles.push_back(drawn);
}

void Recorder::area(const Area& area) {
  lastWidth_ = area.width;
  RecordedLayer& layer = onLayer();
  layer.areas.push_back({layer.corners.size(), 0, static_cast<float>(area.width)});
  for (const Corner& corner : area.corners) addCorner(corner.at, corner.curve);
}

void Recorder::polyline(const Polyline& polyline) {
  if (polyline.filled) return area({polyline.width, polyline.corners});
  for (std::size_t i = 1; i < polyline.corners.size(); ++i) {
    addWire(polyline.corners[i - 1].at, polyline.corners[i].at, polyline.corners[i - 1].curve,
            polyline.width);
  }
}

void Recorder::openPolygon(const PolygonStart& start) {
  lastWidth_ = start.width;
  RecordedLayer& layer = onLayer();
  layer.areas.push_back({layer.corners.size(), 0, static_cast<float>(start.width)});
  addCorner(start.first, 0.0);
  addCorner(start.second, 0.0);
}

void Recorder::addToPolygon(Point corner) { addCorner(corner, 0.0); }

void Recorder::closePolygon() {}

void Recorder::text(const Text& text) {
  RecordedText recorded;
  recorded.at = placed(text.at);
  recorded.size = size_;
  recorded.degrees = text.orientation.degrees;
  recorded.content = text.content;
  onLayer().texts.push_back(std::move(recorded));
}

void Recorder::label(const Label& label) {
  RecordedText text;
  text.at = placed(label.at);
  text.size = size_;
  text.content = label.content;
  text.degrees = label.degrees;
  text.mirrored = label.mirrored;
  text.spin = label.spin;
  text.align = align_;
  onLayer().texts.push_back(std::move(text));
}

void Recorder::part(const Part& part) {
  sheet().parts.push_back({std::string(part.name), placed(part.at), part.degrees, part.spin});
}

void Recorder::hole(const Hole& hole) {
  sheet().holes.push_back({placed(hole.centre), hole.drill});
}

void Recorder::change(Property property, double value) {
  if (property == Property::Size) size_ = value;
}

void Recorder::change(Property property, std::string_view word) {
  if (property == Property::Align) align_ = word;
}

void Recorder::edit(std::string_view name, std::string_view /*extension*/) {
  layer_ = nullptr;
  inPart_ = false;
  const auto known = sheets_.find(name);
  if (known != sheets_.end()) {
    sheet_ = known->second;
    return;
  }
  sheet_ = &recording_.sheets.emplace_back();
  sheet_->name = name;
  sheets_.emplace(sheet_->name, sheet_);
}

RecordedLayer& Recorder::onLayer() {
  if (layer_ == nullptr) layer_ = &sheet().layers[layerNumber_];
  return *layer_;
}

void Recorder::addCorner(Point corner, double curve) {
  RecordedLayer& layer = onLayer();
  const Point at = placed(corner);
  RecordedArea& area = layer.areas.back();
  if (area.count > 0 && layer.corners.back().at == at) return;
  layer.corners.push_back({at, static_cast<float>(curve)});
  ++area.count;
}

void Recorder::addWire(Point from, Point to, double curve, double width) {
  lastWidth_ = width;
  onLayer().wires.push_back(
      {placed(from), placed(to), static_cast<float>(curve), static_cast<float>(width)});
}

}  // namespace quillon::eagle
