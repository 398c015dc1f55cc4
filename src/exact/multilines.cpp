#include "exact/multilines.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/encoding.h"
#include "base/number_text.h"
#include "exact/whole_numbers.h"
#include "geometry/area.h"
#include "geometry/crossings.h"
#include "geometry/loops.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

using base::numberValue;

/// A vertex of an MLINE.
struct MlineVertex {
  Point at{};
  Point direction{};  ///< of the edge that starts here
  Point miter{};
  double height = 0.0;  ///< of the place; of steps along the two directions
  double directionRise = 0.0;
  double miterRise = 0.0;
  /// For each element the distance along the miter, then distances along the edge where the element
  /// starts, breaks off, goes on and so forth.
  std::vector<std::vector<double>> elements{};
};

struct MlineGroups {
  std::vector<MlineVertex> vertices;
  std::string_view style;
  int flags = 0;
  bool isFilled = false;
};

void takeOfMlineVertex(const dxf::Group& group, MlineGroups& values) {
  MlineVertex& vertex = values.vertices.back();
  switch (group.code) {
    case 21:
      vertex.at.y = numberValue(group.value);
      break;
    case 31:
      vertex.height = numberValue(group.value);
      break;
    case 12:
      vertex.direction.x = numberValue(group.value);
      break;
    case 22:
      vertex.direction.y = numberValue(group.value);
      break;
    case 32:
      vertex.directionRise = numberValue(group.value);
      break;
    case 13:
      vertex.miter.x = numberValue(group.value);
      break;
    case 23:
      vertex.miter.y = numberValue(group.value);
      break;
    case 33:
      vertex.miterRise = numberValue(group.value);
      break;
    case 74:
      vertex.elements.emplace_back();
      break;
    case 41:
      if (!vertex.elements.empty()) vertex.elements.back().push_back(numberValue(group.value));
      break;
    case 75:
      // Only styles with a filling have numbers for it.
      values.isFilled = values.isFilled || numberValue(group.value) > 0.0;
      break;
    default:
      break;
  }
}

/// False when the work is to end.
bool readMline(const Item& item, Canvas& canvas, MlineGroups& values) {
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) {
    switch (group.code) {
      case 2:
        values.style = group.value;
        break;
      case 71:
        values.flags = cutInteger(numberValue(group.value));
        break;
      case 11:
        if (canvas.step()) return false;
        values.vertices.push_back({{numberValue(group.value), 0.0}});
        break;
      default:
        if (!values.vertices.empty()) takeOfMlineVertex(group, values);
    }
  }
  return true;
}

/// Places the vertices where an oblique block shows their heights. The map that is still to come.
Affine showHeights(const Item& item, std::vector<MlineVertex>& vertices) {
  if (item.depth == Point{}) return item.map;
  for (MlineVertex& vertex : vertices) {
    vertex.at = item.seen(vertex.at, vertex.height);
    vertex.direction = item.map.turn(vertex.direction) + item.depth * vertex.directionRise;
    vertex.miter = item.map.turn(vertex.miter) + item.depth * vertex.miterRise;
  }
  return {};
}

constexpr int kClosedMline = 2;
constexpr int kNoStartCap = 4;
constexpr int kNoEndCap = 8;
/// CAD programs allow 16. Each vertex is asked for each of them.
constexpr std::size_t kMostElements = 1000;

/// Draws the elements of an MLINE and what is between them.
class Mline {
 public:
  Mline(const Item& item, Canvas& canvas, MlineGroups values)
      : item_(item),
        canvas_(canvas),
        values_(std::move(values)),
        map_(showHeights(item, values_.vertices)) {
    isClosed_ = (values_.flags & kClosedMline) != 0;
  }

  /// False when it cannot be drawn.
  bool draw() {
    std::size_t elements = 0;
    for (const MlineVertex& vertex : values_.vertices) {
      elements = std::max(elements, vertex.elements.size());
    }
    if (elements == 0 || elements > kMostElements) {
      canvas_.lose(item_, LossRule::DamagedEntity);
      return false;
    }
    if (!isUsable(elements)) {
      canvas_.lose(item_, LossRule::UnusableNumbers);
      return false;
    }
    // Else the edges of the filling are there already.
    if (values_.isFilled && canvas_.fills()) fill();
    for (std::size_t element = 0; element < elements; ++element) drawElement(element);
    return true;
  }

  /// The lines across at its ends and corners, from one outermost element to the other.
  MlineCrossings crossings() {
    const Origin& origin = item_.origin;
    MlineCrossings all{
        base::upperCase(values_.style, canvas_.drawing().encoding),
        {LossRule::MultilineCaps, origin.kind, origin.dxfLayer, origin.line, item_.map(Point{})},
        !isClosed_ && (values_.flags & kNoStartCap) == 0,
        !isClosed_ && (values_.flags & kNoEndCap) == 0};
    const std::size_t last = values_.vertices.size() - 1;
    PiecesAcross pieces(all.pieces);
    ShapeSink& before = canvas_.drawInto(pieces);
    for (std::size_t i = 0; i <= last && !canvas_.step(); ++i) {
      const bool isJoint = isClosed_ || (i != 0 && i != last);
      if (!isJoint && !(i == 0 ? all.hasStart : all.hasEnd)) continue;
      pieces.where = isJoint ? MlineAcross::Joint : i == 0 ? MlineAcross::Start : MlineAcross::End;
      drawAcross(i);
    }
    canvas_.drawInto(before);
    return all;
  }

 private:
  /// Keeps the lines that are drawn across instead of drawing them.
  class PiecesAcross final : public ShapeSink {
   public:
    explicit PiecesAcross(std::vector<MlineCrossings::Piece>& pieces) : pieces_(pieces) {}
    MlineAcross where = MlineAcross::Start;

    void take(const Origin& origin, Chain&& chain) override {
      pieces_.push_back({where, origin, std::move(chain)});
    }
    void take(const Origin& origin, const Dot& dot) override {
      pieces_.push_back({where, origin, dot});
    }
    void take(const Origin&, Area&&) override {}
    void take(const Origin&, TextLine&&) override {}
    void take(const Origin&, const Hole&) override {}
    void take(const Origin&, const EndlessLine&) override {}

   private:
    std::vector<MlineCrossings::Piece>& pieces_;
  };

  void drawAcross(std::size_t vertex) {
    const auto [low, high] = outermost(vertex);
    if (low == high) return;
    const Path line{{{cornerOf(vertex, low)}, {cornerOf(vertex, high)}}, false};
    const Point start = map_(line.vertices.front().at);
    const Point end = map_(line.vertices.back().at);
    if (geometry::distance(start, end) < canvas_.measures().resolution) return;
    canvas_.stroke(item_, line, map_);
  }

  /// No corner is too far away to be reckoned with.
  bool isUsable(std::size_t elements) const {
    for (std::size_t element = 0; element < elements; ++element) {
      for (std::size_t vertex = 0; vertex < values_.vertices.size(); ++vertex) {
        if (hasElement(vertex, element) && !geometry::usable(cornerOf(vertex, element))) {
          return false;
        }
      }
    }
    return true;
  }

  bool hasElement(std::size_t vertex, std::size_t element) const {
    const auto& elements = values_.vertices[vertex].elements;
    return element < elements.size() && !elements[element].empty();
  }

  /// The elements of a vertex with the least and the greatest distance from it; the same twice
  /// where there are no two.
  std::pair<std::size_t, std::size_t> outermost(std::size_t vertex) const {
    const auto& elements = values_.vertices[vertex].elements;
    std::optional<std::size_t> low;
    std::optional<std::size_t> high;
    for (std::size_t i = 0; i < elements.size(); ++i) {
      if (elements[i].empty()) continue;
      if (!low || elements[i].front() < elements[*low].front()) low = i;
      if (!high || elements[i].front() > elements[*high].front()) high = i;
    }
    return {low.value_or(0), high.value_or(0)};
  }

  /// Where the element passes a vertex that has it.
  Point cornerOf(std::size_t vertex, std::size_t element) const {
    const MlineVertex& here = values_.vertices[vertex];
    return here.at + here.miter * here.elements[element].front();
  }

  void drawElement(std::size_t element) {
    const std::size_t count = values_.vertices.size();
    isBroken_ = false;
    for (std::size_t i = 0; i + (isClosed_ ? 0 : 1) < count; ++i) {
      if (canvas_.step()) return;
      const std::size_t next = (i + 1) % count;
      if (hasElement(i, element) && hasElement(next, element)) {
        drawEdge(values_.vertices[i], cornerOf(i, element), cornerOf(next, element),
                 values_.vertices[i].elements[element]);
      } else {
        breakOff();
      }
    }
    endChain(isClosed_ && !isBroken_);
  }

  /// The parts of an edge between its breaks. What reaches its ends goes on in the next one.
  void drawEdge(const MlineVertex& vertex, Point from, Point to,
                const std::vector<double>& values) {
    const Point way = to - from;
    const double square = dot(way, way);
    const Point direction = vertex.direction == Point{} ? geometry::unit(way) : vertex.direction;
    // Seen from above, distances along an edge that rises are shorter.
    const double share = square > 0.0 ? dot(direction, way) / square : 0.0;
    const auto shareOf = [&](std::size_t value, double otherwise) {
      if (value >= values.size()) return otherwise;
      const double found = values[value] * share;
      return found > 0.0 ? std::min(found, 1.0) : 0.0;  // also for what is no number
    };
    for (std::size_t i = 1; i == 1 || i < values.size(); i += 2) {
      if (canvas_.step()) return;
      const double start = shareOf(i, 0.0);
      const double end = shareOf(i + 1, 1.0);
      if (start > 0.0) breakOff();
      if (!(start < end)) continue;
      if (chain_.vertices.empty()) chain_.vertices.push_back({from + way * start});
      chain_.vertices.push_back({end < 1.0 ? from + way * end : to});
      if (end < 1.0) breakOff();
    }
  }

  void breakOff() {
    isBroken_ = true;
    endChain(false);
  }

  void endChain(bool closed) {
    Path chain = std::move(chain_);
    chain_ = {};
    if (chain.vertices.empty()) return;
    if (closed) chain.vertices.pop_back();  // the first one again
    chain.closed = closed;
    canvas_.stroke(item_, chain, map_);
  }

  /// A line along all vertices, as far from them as this element is.
  Path wholeElement(std::size_t element) const {
    Path path{{}, true};
    for (std::size_t i = 0; i < values_.vertices.size(); ++i) {
      if (hasElement(i, element)) path.vertices.push_back({cornerOf(i, element)});
    }
    return path;
  }

  /// The area between the outermost elements.
  void fill() {
    const auto [low, high] = outermost(0);
    if (low == high) return;
    Path one = wholeElement(low);
    const Path other = wholeElement(high);
    if (isClosed_) {
      return fillRing(canvas_.mapped(item_, one, map_), canvas_.mapped(item_, other, map_));
    }
    one.vertices.insert(one.vertices.end(), other.vertices.rbegin(), other.vertices.rend());
    canvas_.area(item_, canvas_.mapped(item_, one, map_));
  }

  void fillRing(const Path& one, const Path& other) {
    const std::vector<Path> loops = {one, other};
    if (!geometry::crossOrTouch(loops)) {
      const geometry::NestedLoops nested =
          geometry::nestLoops(loops, geometry::NestedFill::everySecond);
      for (const geometry::Region& region : nested.regions) canvas_.region(item_, region);
      return;
    }
    const double gap = 0.001 * canvas_.measures().millimetre;
    const geometry::CrossingFaces faces =
        geometry::facesOf(loops, {.tolerance = canvas_.measures().tolerance, .gap = gap});
    if (!faces.complete) canvas_.lose(item_, LossRule::AreaTooIntricate);
    for (const geometry::Region& face : faces.faces) canvas_.region(item_, face);
  }

  const Item& item_;
  Canvas& canvas_;
  MlineGroups values_;
  Affine map_;
  bool isClosed_ = false;
  bool isBroken_ = false;  ///< the element drawn last, somewhere
  Path chain_;
};

}  // namespace

void drawMline(const Item& item, Canvas& canvas, MlineStyles* styles) {
  MlineGroups values;
  if (!readMline(item, canvas, values)) return;
  if (values.vertices.size() < 2) return canvas.lose(item, LossRule::OneVertex);
  Mline mline(item, canvas, std::move(values));
  if (!mline.draw()) return;
  MlineCrossings crossings = mline.crossings();
  if (styles != nullptr) return styles->note(std::move(crossings));
  if (crossings.mayHaveCaps()) canvas.lose(item, LossRule::MultilineCaps);
}

}  // namespace quillon::exact
