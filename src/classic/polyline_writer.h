#pragma once

#include <cstdint>

#include "classic/context.h"
#include "classic/dash_pattern.h"
#include "geometry/placement.h"

namespace quillon::classic {

using geometry::Placement;

/// What the vertices of a polyline share.
struct PolylineStyle {
  int layer = 0;
  const DashPattern* dashes = nullptr;
  bool closed = false;
  /// True for kinds whose closing segment has no vertex of its own.
  bool closesItself = false;
  double width = 0.0;  ///< own width; 0 when it has none
  Placement placement;
};

struct PlacedVertex {
  Point at;
  double startWidth = 0.0;  ///< 0: use the polyline's width
  double bulge = 0.0;
};

/// Writes one polyline after another, vertex by vertex, either as a polygon (closed, without width,
/// in polyline mode; ignores bulges) or segment by segment.
class PolylineWriter {
 public:
  explicit PolylineWriter(Context& context) : context_(context) {}

  bool running() const { return running_; }
  /// Whether the polyline becomes a polygon.
  bool isPolygon() const { return asPolygon_; }

  /// Starts a polyline. `hasWidth` rules out the polygon form.
  void begin(const PolylineStyle& style, bool hasWidth);
  void add(const PlacedVertex& vertex);
  /// Ends the polyline, if one is open.
  void finish();

 private:
  void addToPolygon(const PlacedVertex& vertex);
  void writeSegment(const PlacedVertex& from, const PlacedVertex& to);
  double widthOf(const PlacedVertex& vertex) const;

  Context& context_;
  PolylineStyle style_;
  bool running_ = false;
  bool asPolygon_ = false;
  std::uint64_t polygons_ = 0;  ///< so far; the number of the last one is its name
  std::uint64_t vertices_ = 0;
  PlacedVertex first_;
  PlacedVertex last_;
};

}  // namespace quillon::classic
