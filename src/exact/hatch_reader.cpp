#include "exact/hatch_reader.h"

#include <utility>

#include "base/number_text.h"
#include "exact/whole_numbers.h"
#include "geometry/arc.h"

namespace quillon::exact {
namespace {

using base::numberValue;
using geometry::NestedFill;

/// Group codes mean something else in each part of a hatch: the same ones are a corner, the centre
/// of an arc or a point from which the area was picked.
class HatchReader {
 public:
  void take(const dxf::Group& group) {
    if (group.code == 100) return begin(group.value);
    const double value = numberValue(group.value);
    if (group.code == 92 && part_ != Part::Pattern) return beginLoop(cutInteger(value));
    if (group.code == 75) setStyle(cutInteger(value));
    if (endsLoops(group.code)) part_ = Part::Pattern;
    switch (part_) {
      case Part::Head:
        return takeHead(group.code, value);
      case Part::Polyline:
        return takePolyline(group.code, value);
      case Part::Edges:
        return takeEdge(group.code, value);
      case Part::Pattern:
        return takePattern(group.code, value);
    }
  }

  HatchGroups result() { return std::move(hatch_); }

 private:
  enum class Part : std::uint8_t { Head, Polyline, Edges, Pattern };

  /// What comes before the groups of its own class may use the same codes.
  void begin(std::string_view className) {
    if (className != "AcDbHatch" && className != "AcDbMPolygon") return;
    hatch_ = {};
    part_ = Part::Head;
  }

  void beginLoop(int flags) {
    constexpr int kPolyline = 2;
    constexpr int kTextBox = 8;
    HatchLoop loop;
    loop.isPolyline = (flags & kPolyline) != 0;
    loop.isTextBox = (flags & kTextBox) != 0;
    part_ = loop.isPolyline ? Part::Polyline : Part::Edges;
    hatch_.loops.push_back(std::move(loop));
  }

  void setStyle(int style) {
    if (style == 1) hatch_.nesting = NestedFill::outermost;
    if (style == 2) hatch_.nesting = NestedFill::whole;
  }

  /// Style and type of the pattern, number of its families and of picked points.
  static bool endsLoops(int code) { return code == 75 || code == 76 || code == 78 || code == 98; }

  void takeHead(int code, double value) {
    if (code == 30) hatch_.elevation = value;
    if (code == 70) hatch_.isSolid = value == 1.0;
    takePattern(code, value);
  }

  void takePolyline(int code, double value) {
    auto& corners = hatch_.loops.back().polyline.vertices;
    if (code == 10) {
      corners.push_back({{value, HatchEdge::kNone}});
    } else if (code == 20 && !corners.empty()) {
      corners.back().at.y = value;
    } else if (code == 42 && !corners.empty()) {
      corners.back().curve = geometry::curveOfBulge(value);
    } else {
      takePattern(code, value);
    }
  }

  void takeEdge(int code, double value) {
    HatchLoop& loop = hatch_.loops.back();
    if (code == 72) return beginEdge(cutInteger(value));
    if (loop.edges.empty()) return takePattern(code, value);
    HatchEdge& edge = loop.edges.back();
    if (edge.kind == HatchEdge::Kind::Spline) return takeSpline(loop.splines.back(), code, value);
    switch (code) {
      case 10:
        edge.from.x = value;
        break;
      case 20:
        edge.from.y = value;
        break;
      case 11:
        edge.to.x = value;
        break;
      case 21:
        edge.to.y = value;
        break;
      case 40:
        edge.radius = value;
        break;
      case 50:
        edge.start = value;
        break;
      case 51:
        edge.end = value;
        break;
      case 73:
        edge.isClockwise = value == 0.0;
        break;
      default:
        takePattern(code, value);
    }
  }

  void beginEdge(int type) {
    HatchLoop& loop = hatch_.loops.back();
    HatchEdge edge;
    if (type >= 1 && type <= 4) edge.kind = static_cast<HatchEdge::Kind>(type);
    if (edge.kind == HatchEdge::Kind::Spline) {
      edge.spline = loop.splines.size();
      loop.splines.emplace_back();
    }
    loop.edges.push_back(edge);
  }

  void takeSpline(HatchSpline& spline, int code, double value) {
    switch (code) {
      case 94:
        spline.degree = cutInteger(value);
        break;
      case 74:
        spline.isPeriodic = value != 0.0;
        break;
      case 40:
        spline.knots.push_back(value);
        break;
      case 42:
        spline.weights.push_back(value);
        break;
      case 10:
        spline.controlPoints.push_back({value, 0.0});
        break;
      case 20:
        if (!spline.controlPoints.empty()) spline.controlPoints.back().y = value;
        break;
      case 11:
        spline.fitPoints.push_back({value, 0.0});
        break;
      case 21:
        if (!spline.fitPoints.empty()) spline.fitPoints.back().y = value;
        break;
      case 12:
        spline.startTangent.x = value;
        break;
      case 22:
        spline.startTangent.y = value;
        break;
      case 13:
        spline.endTangent.x = value;
        break;
      case 23:
        spline.endTangent.y = value;
        break;
      default:
        takePattern(code, value);
    }
  }

  /// Groups that mean the same in all parts where nothing else has their codes.
  void takePattern(int code, double value) {
    if (code == 53) return hatch_.families.push_back({value, {}, {}, {}});
    if (code == 450) hatch_.isGradient = value == 1.0;
    if (code == 11) hatch_.offset.x = value;
    if (code == 21) hatch_.offset.y = value;
    if (hatch_.families.empty()) return;
    geometry::HatchFamily& family = hatch_.families.back();
    if (code == 43) family.origin.x = value;
    if (code == 44) family.origin.y = value;
    if (code == 45) family.step.x = value;
    if (code == 46) family.step.y = value;
    if (code == 49) family.dashes.push_back(value);
  }

  Part part_ = Part::Head;
  HatchGroups hatch_;
};

}  // namespace

HatchGroups readHatch(const Item& item, Canvas& canvas) {
  constexpr std::size_t kGroupsPerStep = 8;  // about an edge
  HatchReader reader;
  EntityGroups groups = canvas.groupsOf(item);
  std::size_t count = 0;
  for (dxf::Group group; groups.next(group);) {
    if (++count % kGroupsPerStep == 0 && canvas.step()) break;
    reader.take(group);
  }
  return reader.result();
}

}  // namespace quillon::exact
