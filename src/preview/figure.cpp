#include "preview/figure.h"

#include <cmath>

#include "base/encoding.h"
#include "geometry/arc.h"
#include "geometry/degrees.h"
#include "geometry/mapped_box.h"
#include "preview/lettering.h"

namespace quillon::preview {
namespace {

using eagle::RecordedLayer;
using eagle::RecordedSheet;
using geometry::Box;
using geometry::Point;

bool isEmpty(const RecordedSheet& sheet) {
  return sheet.layers.empty() && sheet.parts.empty() && sheet.holes.empty();
}

void addWide(Box& box, const Box& inner, double margin) {
  if (inner.empty() || !isInSight(inner.low) || !isInSight(inner.high)) return;
  if (!isInSight(margin)) return;
  const Point by{margin, margin};
  box.add(inner.low - by);
  box.add(inner.high + by);
}

void addDisc(Box& box, Point centre, double radius) {
  Box inner;
  inner.add(centre);
  addWide(box, inner, radius);
}

/// Around the corners of a part's own box where the part is placed.
Box placedBox(const Box& box, const eagle::RecordedPart& part) {
  const Point direction = geometry::unitVector(part.degrees);
  Box placed;
  geometry::addMapped(placed, box,
                      geometry::Affine::shift(part.at) * geometry::Affine::turnTo(direction));
  return placed;
}

/// The box of a sheet alone, without its parts.
class SheetBox {
 public:
  SheetBox(const RecordedSheet& sheet, base::Encoding encoding) : encoding_(encoding) {
    for (const auto& [number, layer] : sheet.layers) addLayer(layer);
    for (const eagle::RecordedHole& hole : sheet.holes) addDisc(box_, hole.centre, hole.drill / 2);
  }
  const Box& box() const { return box_; }

 private:
  void addLayer(const RecordedLayer& layer) {
    for (const eagle::RecordedWire& wire : layer.wires) {
      addWide(box_, geometry::bounds({wire.from, wire.to, wire.curve}), wire.width / 2.0);
    }
    for (const eagle::RecordedCircle& circle : layer.circles) {
      addDisc(box_, circle.centre, circle.radius + circle.width / 2.0);
    }
    for (const eagle::RecordedArea& area : layer.areas) addArea(layer, area);
    for (const eagle::RecordedText& text : layer.texts) addText(text);
  }

  void addArea(const RecordedLayer& layer, const eagle::RecordedArea& area) {
    for (std::size_t i = 0; i < area.count; ++i) {
      const eagle::RecordedCorner& from = layer.corners[area.first + i];
      const eagle::RecordedCorner& to = layer.corners[area.first + (i + 1) % area.count];
      addWide(box_, geometry::bounds({from.at, to.at, from.curve}), area.width / 2.0);
    }
  }

  void addText(const eagle::RecordedText& text) {
    Box inner;
    const Strokes strokes = letteringOf(text, base::toUtf8(text.content, encoding_));
    for (const Point point : strokes.points) inner.add(point);
    addWide(box_, inner, text.size * kPenWidth / 2.0);
  }

  base::Encoding encoding_;
  Box box_;
};

}  // namespace

bool isInSight(double length) {
  constexpr double kFarthest = 1e11;
  return std::fabs(length) <= kFarthest;
}

bool isInSight(Point point) { return isInSight(point.x) && isInSight(point.y); }

Figure::Figure(const eagle::Recording& recording)
    : encoding_(recording.encoding), sheet_(&recording.sheets.front()) {
  for (const RecordedSheet& sheet : recording.sheets) {
    byName_.emplace(sheet.name, &sheet);
    if (isEmpty(*sheet_)) sheet_ = &sheet;
  }
}

const RecordedSheet* Figure::partNamed(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second;
}

Box Figure::bounds() const {
  Box box = SheetBox(*sheet_, encoding_).box();
  std::map<std::string_view, Box> parts;
  for (const eagle::RecordedPart& part : sheet_->parts) {
    const auto [known, isNew] = parts.try_emplace(part.name);
    if (const RecordedSheet* const content = isNew ? partNamed(part.name) : nullptr) {
      known->second = SheetBox(*content, encoding_).box();
    }
    const Box& inner = known->second;
    if (!inner.empty()) addWide(box, placedBox(inner, part), 0.0);
  }
  return box;
}

}  // namespace quillon::preview
