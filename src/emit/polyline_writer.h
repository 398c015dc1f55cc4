#pragma once

#include <cstdint>

#include "emit/areas.h"
#include "emit/dash_pattern.h"
#include "emit/emit_context.h"
#include "emit/placement.h"

namespace quillon::emit {

/// What a polyline's vertices share.
struct PolylineStyle {
  int layer = 0;
  const DashPattern* dashes = nullptr;
  bool closed = false;
  /// True for the kinds whose run has no vertex of its own for the way back to the first one.
  bool closesItself = false;
  double width = 0.0;  ///< own width; 0 when it has none
  Placement placement;
};

struct PlacedVertex {
  Corner at;
  double startWidth = 0.0;  ///< 0: the polyline's own width
  double bulge = 0.0;
};

/// Writes one polyline after the other, vertex by vertex, either as a polygon (closed, without
/// width, in polyline mode; bulges do not count then) or segment by segment.
class PolylineWriter {
 public:
  explicit PolylineWriter(EmitContext& context) : context_(context), polygon_(context) {}

  bool running() const { return running_; }

  /// Starts a run. `hasWidth` keeps it off the polygon road.
  void begin(const PolylineStyle& style, bool hasWidth);
  void add(const PlacedVertex& vertex);
  /// Ends the run, if there is one.
  void finish();

 private:
  void addToPolygon(const PlacedVertex& vertex);
  void writeSegment(const PlacedVertex& from, const PlacedVertex& to);
  double widthOf(const PlacedVertex& vertex) const;

  EmitContext& context_;
  PolygonWriter polygon_;
  PolylineStyle style_;
  bool running_ = false;
  bool asPolygon_ = false;
  std::uint64_t vertices_ = 0;
  PlacedVertex first_;
  PlacedVertex last_;
};

}  // namespace quillon::emit
