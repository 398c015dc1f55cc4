#include "exact/polylines.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "base/number_text.h"
#include "exact/mesh_edges.h"
#include "exact/whole_numbers.h"
#include "exact/wide_polylines.h"
#include "geometry/arc.h"

namespace quillon::exact {
namespace {

using base::numberValue;

// Flags of a polyline.
constexpr int kPolylineCloses = 1;
constexpr int kPolylineIsSmooth = 4;
constexpr int kPolylineInSpace = 8;
constexpr int kPolylineIsMesh = 16;
constexpr int kMeshRowsClose = 32;
constexpr int kPolylineIsFaces = 64;
constexpr int kPolylineDashesOn = 128;

// Flags of a VERTEX.
constexpr int kVertexIsFitted = 8;
constexpr int kVertexOfFrame = 16;
constexpr int kVertexOfMesh = 64;
constexpr int kVertexOfFaces = 128;

struct LwPolylineGroups {
  FlatPolyline polyline;
  double elevation = 0.0;
  double width = 0.0;  ///< of all edges, unless it is 0

  /// Takes over a group; those of a vertex follow its x coordinate.
  void take(const dxf::Group& group) {
    std::vector<geometry::Vertex>& vertices = polyline.path.vertices;
    switch (group.code) {
      case 10:
        vertices.push_back({{numberValue(group.value), 0.0}});
        return;
      case 38:
        elevation = numberValue(group.value);
        return;
      case 43:
        width = numberValue(group.value);
        return;
      case 70: {
        const int flags = cutInteger(numberValue(group.value));
        polyline.path.closed = (flags & kPolylineCloses) != 0;
        polyline.dashesAlongWhole = (flags & kPolylineDashesOn) != 0;
        return;
      }
      case 90:
        makeRoom(numberValue(group.value));
        return;
      default:
        if (!vertices.empty()) takeOfVertex(group);
    }
  }

 private:
  /// For as many vertices as the polyline says, which may be wrong.
  void makeRoom(double count) {
    constexpr double kMostRoom = 1000.0;
    if (!(count > 0.0)) return;
    const auto room = static_cast<std::size_t>(std::min(count, kMostRoom));
    polyline.path.vertices.reserve(room);
  }

  /// Those of the last vertex. Most polylines have none.
  geometry::EdgeWidth& lastWidths() {
    polyline.widths.resize(polyline.path.vertices.size());
    return polyline.widths.back();
  }

  void takeOfVertex(const dxf::Group& group) {
    switch (group.code) {
      case 20:
        polyline.path.vertices.back().at.y = numberValue(group.value);
        return;
      case 40:
        lastWidths().start = numberValue(group.value);
        return;
      case 41:
        lastWidths().end = numberValue(group.value);
        return;
      case 42:
        polyline.path.vertices.back().curve = geometry::curveOfBulge(numberValue(group.value));
        return;
      default:
        return;
    }
  }
};

Canvas::Stroke meshStroke(const Canvas& canvas) {
  Canvas::Stroke how;
  if (canvas.options().widthless) how.width = 0.0;
  return how;
}

}  // namespace

void drawLwPolyline(const Item& item, Canvas& canvas) {
  LwPolylineGroups values;
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) {
    if (group.code == 10 && canvas.step()) return;
    values.take(group);
  }
  const std::size_t count = values.polyline.path.vertices.size();
  if (values.width != 0.0) {
    values.polyline.widths.assign(count, {values.width, values.width});
  } else if (!values.polyline.widths.empty()) {
    values.polyline.widths.resize(count);
  }
  drawFlatPolyline(item, canvas, values.polyline, item.objectMap(values.elevation));
}

void VertexPolyline::begin(const Item& item, Canvas& canvas) {
  open_ = Open{item.entity, item.pen, item.map, item.origin, item.isInDimension, item.depth};
  open_->entity.split = {};
  Header& header = open_->header;
  double flags = 0.0;
  readNumbers(canvas.groupsOf(item), {{30, &header.elevation},
                                      {40, &header.startWidth},
                                      {41, &header.endWidth},
                                      {70, &flags},
                                      {71, &header.rows},
                                      {72, &header.columns},
                                      {73, &header.smoothRows},
                                      {74, &header.smoothColumns}});
  header.flags = cutInteger(flags);
}

void VertexPolyline::add(const Entity& vertex, Canvas& canvas) {
  if (!open_) return;
  Corner corner;
  corner.startWidth = open_->header.startWidth;
  corner.endWidth = open_->header.endWidth;
  double bulge = 0.0;
  double flags = 0.0;
  std::array<double, 4> indices{};
  readNumbers(vertex.groupsBy(canvas.drawing().lineEnds), {{10, &corner.at.x},
                                                           {20, &corner.at.y},
                                                           {40, &corner.startWidth},
                                                           {41, &corner.endWidth},
                                                           {42, &bulge},
                                                           {70, &flags},
                                                           {71, &indices[0]},
                                                           {72, &indices[1]},
                                                           {73, &indices[2]},
                                                           {74, &indices[3]}});
  if (open_->depth != Point{}) {
    readNumbers(vertex.groupsBy(canvas.drawing().lineEnds), {{30, &corner.height}});
  }
  corner.curve = geometry::curveOfBulge(bulge);
  corner.flags = cutInteger(flags);
  std::transform(indices.begin(), indices.end(), corner.indices.begin(), cutInteger);
  open_->corners.push_back(corner);
}

void VertexPolyline::finish(Canvas& canvas) {
  if (!open_) return;
  const Open open = std::move(*open_);
  open_.reset();
  draw(open, canvas);
}

void VertexPolyline::draw(const Open& open, Canvas& canvas) {
  const Item item{open.entity,        open.map, open.origin, open.pen,
                  open.isInDimension, false,    open.depth};
  if ((open.header.flags & kPolylineIsFaces) != 0) return drawFaces(open, item, canvas);
  if ((open.header.flags & kPolylineIsMesh) != 0) return drawMesh(open, item, canvas);
  drawFlat(open, item, canvas);
}

/// In space, bulges and widths mean nothing.
void VertexPolyline::drawFlat(const Open& open, const Item& item, Canvas& canvas) {
  const int flags = open.header.flags;
  const bool isInSpace = (flags & kPolylineInSpace) != 0;
  FlatPolyline polyline;
  polyline.path.closed = (flags & kPolylineCloses) != 0;
  polyline.dashesAlongWhole = (flags & kPolylineDashesOn) != 0;
  const bool hasWidths =
      !isInSpace && std::any_of(open.corners.begin(), open.corners.end(), [](const Corner& corner) {
        return corner.startWidth != 0.0 || corner.endWidth != 0.0;
      });
  polyline.path.vertices.reserve(open.corners.size());
  for (const Corner& corner : open.corners) {
    if (canvas.step()) return;
    if ((flags & kPolylineIsSmooth) != 0 && (corner.flags & kVertexOfFrame) != 0) continue;
    if (isInSpace) {
      polyline.path.vertices.push_back({item.seen(corner.at, corner.height)});
    } else {
      polyline.path.vertices.push_back({corner.at, corner.curve});
    }
    if (hasWidths) polyline.widths.push_back({corner.startWidth, corner.endWidth});
  }
  drawFlatPolyline(item, canvas, polyline,
                   isInSpace ? Affine{} : item.objectMap(open.header.elevation));
}

/// A smoothed mesh shows its fitted points only, any other one those of its frame.
void VertexPolyline::drawMesh(const Open& open, const Item& item, Canvas& canvas) {
  const Header& header = open.header;
  const bool isSmooth = (header.flags & kPolylineIsSmooth) != 0;
  std::vector<Point> points;
  for (const Corner& corner : open.corners) {
    if (((corner.flags & kVertexIsFitted) != 0) == isSmooth) {
      points.push_back(item.seen(corner.at, corner.height));
    }
  }
  const auto countOf = [](double count) {
    return static_cast<std::uint64_t>(std::max(cutInteger(count), 0));
  };
  MeshNet net;
  net.points = points;
  net.rows = countOf(isSmooth ? header.smoothRows : header.rows);
  net.columns = countOf(isSmooth ? header.smoothColumns : header.columns);
  net.rowsClose = (header.flags & kMeshRowsClose) != 0;
  net.columnsClose = (header.flags & kPolylineCloses) != 0;
  drawNet(item, canvas, net, meshStroke(canvas));
}

void VertexPolyline::drawFaces(const Open& open, const Item& item, Canvas& canvas) {
  std::vector<Point> points;
  for (const Corner& corner : open.corners) {
    if ((corner.flags & kVertexOfMesh) != 0) {
      points.push_back(item.seen(corner.at, corner.height));
    }
  }
  EdgesOnce edges(item, canvas, points, meshStroke(canvas));
  for (const Corner& face : open.corners) {
    if ((face.flags & kVertexOfFaces) == 0 || (face.flags & kVertexOfMesh) != 0) continue;
    if (canvas.step()) return;
    std::vector<std::int64_t> indices;
    for (const int index : face.indices) {
      if (index != 0) indices.push_back(index);
    }
    for (std::size_t i = 0; i < indices.size(); ++i) {
      const std::int64_t next = std::abs(indices[(i + 1) % indices.size()]);
      if (indices[i] > 0) edges.draw(indices[i] - 1, next - 1);
    }
  }
  if (edges.sawWrongIndex()) canvas.lose(item, LossRule::DamagedEntity);
}

}  // namespace quillon::exact
