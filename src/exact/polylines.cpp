#include "exact/polylines.h"

namespace quillon::exact {

void drawLwPolyline(const Item&, Canvas&) {}

void VertexPolyline::begin(const Item& item, Canvas&) {
  open_ = Open{item.entity, item.pen, item.map, item.origin, item.isInDimension};
}
void VertexPolyline::add(const Entity&, Canvas&) {}
void VertexPolyline::finish(Canvas&) { open_.reset(); }

}  // namespace quillon::exact
