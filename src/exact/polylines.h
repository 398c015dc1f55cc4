#pragma once

#include <array>
#include <optional>
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
  /// Values of the POLYLINE.
  struct Header {
    int flags = 0;
    double elevation = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
    double rows = 0.0;  ///< of the frame of a mesh, and points in each of them
    double columns = 0.0;
    double smoothRows = 0.0;
    double smoothColumns = 0.0;
  };
  struct Corner {
    Point at{};
    double curve = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
    double height = 0.0;  ///< read where it counts: within an oblique block
    int flags = 0;
    std::array<int, 4> indices{};  ///< of a face: from 1; 0: none; negative: the edge is hidden
  };
  struct Open {
    Entity entity;
    Pen pen;
    Affine map;
    Origin origin;
    bool isInDimension = false;
    Point depth{};
    Header header{};
    std::vector<Corner> corners{};
  };

  static void draw(const Open& open, Canvas& canvas);
  static void drawFlat(const Open& open, const Item& item, Canvas& canvas);
  static void drawMesh(const Open& open, const Item& item, Canvas& canvas);
  static void drawFaces(const Open& open, const Item& item, Canvas& canvas);

  std::optional<Open> open_;
};

}  // namespace quillon::exact
