#include "classic/polyline_writer.h"

#include <algorithm>
#include <cmath>

#include "classic/curves.h"
#include "classic/lines.h"

namespace quillon::classic {
namespace {}  // namespace

void PolylineWriter::begin(const PolylineStyle& style, bool hasWidth) {
  finish();
  style_ = style;
  running_ = true;
  vertices_ = 0;
  const int mode = context_.settings.poly;
  asPolygon_ = style.closed && !hasWidth && (mode == kModePolyline || mode == kModeUnset);
}

void PolylineWriter::add(const PlacedVertex& vertex) {
  if (asPolygon_) {
    addToPolygon(vertex);
  } else if (vertices_ > 0) {
    writeSegment(last_, vertex);
  }
  if (vertices_ == 0) first_ = vertex;
  last_ = vertex;
  ++vertices_;
}

void PolylineWriter::finish() {
  if (!running_) return;
  running_ = false;
  if (vertices_ < 2) return;
  if (asPolygon_) {
    if (style_.layer != kNotConverted) context_.commands.closePolygon();
  } else if (style_.closed && style_.closesItself) {
    writeSegment(last_, first_);
  }
}

void PolylineWriter::addToPolygon(const PlacedVertex& vertex) {
  if (style_.layer == kNotConverted) return;
  if (vertices_ == 1) {
    context_.commands.layer(style_.layer);
    context_.commands.openPolygon({context_.settings.fillWidth, ++polygons_, first_.at, vertex.at});
  } else if (vertices_ > 1) {
    context_.commands.addToPolygon(vertex.at);
  }
}

void PolylineWriter::writeSegment(const PlacedVertex& from, const PlacedVertex& to) {
  const auto& [dx, dy, scaleX, scaleY, rotation] = style_.placement;
  const double width = widthOf(from);
  if (std::fabs(from.bulge) < kSmallestBulge) {
    Point start = from.at;  // a dashed line moves its start point
    writeLine(context_, start.x, start.y, to.at.x, to.at.y, style_.layer, style_.dashes,
              width * std::max(scaleX, scaleY));
  } else {
    const BulgeSegment segment{from.at.x, from.at.y, to.at.x, to.at.y, width, from.bulge};
    writeBulgeSegment(context_, segment, scaleX, scaleY, style_.layer);
  }
}

double PolylineWriter::widthOf(const PlacedVertex& vertex) const {
  if (context_.settings.poly == kModeWithoutWidth) return 0.0;
  if (vertex.startWidth != 0.0) return vertex.startWidth;
  return style_.width != 0.0 ? style_.width : context_.settings.polyWidth;
}

}  // namespace quillon::classic
