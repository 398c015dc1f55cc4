#include <algorithm>
#include <vector>

#include "base/number_text.h"
#include "exact/mesh_edges.h"
#include "exact/multilines.h"
#include "exact/whole_numbers.h"

namespace quillon::exact {
namespace {

using base::numberValue;

/// Walks a list of faces, each of which is a number of indices and these.
class FaceList {
 public:
  explicit FaceList(EdgesOnce& edges) : edges_(edges) {}

  void take(int value) {
    if (left_ == 0) {
      left_ = std::max(value, 0);
      isFirst_ = true;
      isDamaged_ = isDamaged_ || value < 0;
      return;
    }
    if (isFirst_) {
      first_ = value;
    } else {
      edges_.draw(last_, value);
    }
    isFirst_ = false;
    last_ = value;
    if (--left_ == 0) edges_.draw(last_, first_);
  }

  /// The list has numbers that cannot be right, or ends within a face.
  bool isDamaged() const { return isDamaged_ || left_ != 0 || edges_.sawWrongIndex(); }

 private:
  EdgesOnce& edges_;
  int left_ = 0;
  bool isFirst_ = true;
  int first_ = 0;
  int last_ = 0;
  bool isDamaged_ = false;
};

struct MeshGroups {
  std::vector<Point> points;
  std::vector<double> heights;  ///< of the points within an oblique block; else none
  std::vector<int> faces;
  int level = 0;  ///< how often the mesh is subdivided to smooth it
};

/// Codes mean different things in the parts of a MESH, which follow each other.
enum class MeshPart { Common, Start, Points, Faces, Rest };

/// False when the work is to end.
bool readMesh(const Item& item, Canvas& canvas, MeshGroups& values) {
  MeshPart part = MeshPart::Common;
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) {
    switch (group.code) {
      case 100:
        if (group.value == "AcDbSubDMesh") part = MeshPart::Start;
        break;
      case 91:
        if (part == MeshPart::Start) values.level = cutInteger(numberValue(group.value));
        break;
      case 10:
        if (canvas.step()) return false;
        part = MeshPart::Points;
        values.points.push_back({numberValue(group.value), 0.0});
        if (item.depth != Point{}) values.heights.push_back(0.0);
        break;
      case 20:
        if (!values.points.empty()) values.points.back().y = numberValue(group.value);
        break;
      case 30:
        if (!values.heights.empty()) values.heights.back() = numberValue(group.value);
        break;
      case 93:
        part = MeshPart::Faces;
        break;
      case 90:
        if (part != MeshPart::Faces) break;
        if (canvas.step()) return false;
        values.faces.push_back(cutInteger(numberValue(group.value)));
        break;
      case 94:
        part = MeshPart::Rest;
        break;
      default:
        break;
    }
  }
  return true;
}

}  // namespace

void drawMesh(const Item& item, Canvas& canvas) {
  MeshGroups values;
  if (!readMesh(item, canvas, values)) return;
  for (std::size_t i = 0; i < values.points.size(); ++i) {
    values.points[i] =
        item.seen(values.points[i], values.heights.empty() ? 0.0 : values.heights[i]);
  }
  EdgesOnce edges(item, canvas, values.points, {});
  FaceList faces(edges);
  for (const int value : values.faces) {
    if (canvas.step()) return;
    faces.take(value);
  }
  if (values.level > 0) canvas.lose(item, LossRule::SubdivisionNotDrawn);
  if (faces.isDamaged() || values.faces.empty()) canvas.lose(item, LossRule::DamagedEntity);
}

}  // namespace quillon::exact
