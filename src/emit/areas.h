#pragma once

#include <array>
#include <cstdint>

#include "emit/emit_context.h"

namespace quillon::emit {

struct Corner {
  double x = 0.0;
  double y = 0.0;

  /// Exact, as intended: corners that differ in the last bit are different.
  bool operator==(const Corner&) const = default;
};

/// A filled area with four corners (SOLID, TRACE, 3DFACE). Nothing when fewer than three corners
/// differ from the one before.
void writeSolid(EmitContext& context, const std::array<Corner, 4>& corners, int layer);

/// Writes closed polylines as polygons: open, add vertices, close.
class PolygonWriter {
 public:
  explicit PolygonWriter(EmitContext& context) : context_(context) {}

  /// Starts a polygon with its first two vertices; equal ones are written once.
  void open(Corner first, Corner second, int layer);
  /// A vertex equal to the last one written is left out.
  void add(Corner vertex, int layer);
  /// Writes the last vertex once more and ends the polygon.
  void close(int layer);

 private:
  EmitContext& context_;
  std::uint64_t counter_ = 0;
  Corner last_;
};

}  // namespace quillon::emit
