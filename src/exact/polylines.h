#pragma once

#include <optional>
#include <string>
#include <vector>

#include "exact/canvas.h"

namespace quillon::exact {

void drawLwPolyline(const Item& item, Canvas& canvas);

/// A POLYLINE with the VERTEX entities that follow it: flat, in space, a mesh, or faces.
class VertexPolyline {
 public:
  /// Keeps what it needs of the item: its groups are gone when the vertices come.
  void begin(const Item& item, Canvas& canvas);
  void add(const Entity& vertex, Canvas& canvas);
  /// Draws what has been collected, if anything; at the first entity that is no vertex.
  void finish(Canvas& canvas);
  bool isOpen() const { return open_.has_value(); }

 private:
  struct Open {
    Entity entity;
    Pen pen;
    Affine map;
    Origin origin;
    bool isInDimension = false;
  };
  std::optional<Open> open_;
};

}  // namespace quillon::exact
