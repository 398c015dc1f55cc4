#include "exact/held_layer.h"

#include <algorithm>
#include <new>

#include "geometry/arc.h"
#include "geometry/path_tools.h"

namespace quillon::exact {
namespace {

/// Whether a chain is one line or arc, or a circle of two equal halves.
bool isSegment(const Chain& chain) {
  const std::vector<geometry::Vertex>& vertices = chain.path.vertices;
  if (vertices.size() != 2 || chain.isCircle != chain.path.closed) return false;
  return vertices[1].curve == (chain.isCircle ? vertices[0].curve : 0.0);
}

geometry::Box aroundDisc(Point centre, double diameter) {
  const Point radius{diameter / 2.0, diameter / 2.0};
  geometry::Box box;
  box.add(centre - radius);
  box.add(centre + radius);
  return box;
}

}  // namespace

geometry::Box boundsOf(const Chain& chain) { return geometry::bounds(chain.path); }
geometry::Box boundsOf(const Area& area) { return geometry::bounds(area.outline); }
geometry::Box boundsOf(const TextLine& text) { return {text.at, text.at}; }
geometry::Box boundsOf(const Dot& dot) { return aroundDisc(dot.centre, dot.diameter); }
geometry::Box boundsOf(const Hole& hole) { return aroundDisc(hole.centre, hole.drill); }

std::uint32_t Looks::searchedNumberOf(const Origin& origin, const ChainLook& chain) {
  const Key key{origin.kind,     origin.dxfLayer, chain.width,   chain.style,
                chain.cleanable, chain.isArc,     chain.isCircle};
  const auto [found, isNew] = numbers_.try_emplace(key, static_cast<std::uint32_t>(looks_.size()));
  if (isNew) {
    // The looks themselves would take more than ten gigabytes.
    if (looks_.size() == HeldSegment::kMostLooks) throw std::bad_alloc();
    looks_.push_back({chain, origin.kind, origin.dxfLayer, penOf(chain)});
  }
  return found->second;
}

std::uint32_t Looks::penOf(const ChainLook& chain) {
  const auto count = static_cast<std::uint32_t>(pens_.size());
  return pens_.try_emplace(std::pair(chain.width, chain.style), count).first->second;
}

void HeldLayer::hold(const Origin& origin, Chain&& chain) {
  const std::vector<geometry::Vertex>& vertices = chain.path.vertices;
  if (isSegment(chain)) {
    return addSegment(origin, chain, {vertices[0].at, vertices[1].at, vertices[0].curve});
  }
  if (chain.cleanable && !chain.path.closed && !vertices.empty()) {
    ++openCount_;
    endsBox_.add(vertices.front().at);
    endsBox_.add(vertices.back().at);
  }
  addShape(origin, segments_.size()).shape = std::move(chain);
}

void HeldLayer::addSegment(const Origin& origin, const ChainLook& look,
                           const geometry::Edge& edge) {
  if (look.cleanable) {
    if (!look.isCircle) ++openCount_;
    endsBox_.add(edge.from);
    endsBox_.add(edge.to);
  }
  segments_.add({edge.from, edge.to, origin.line, looks_.numberOf(origin, look)}, edge.curve);
}

void HeldLayer::dropSegment(std::size_t index) {
  const HeldSegment& segment = segments_[index];
  const Look& look = lookOf(segment);
  if (!segment.isDropped() && look.cleanable && !look.isCircle) --openCount_;
  segments_.drop(index);
}

HeldShape& HeldLayer::addShape(const Origin& origin, std::size_t before) {
  places_.push_back({before, shapes_.size()});
  return shapes_.add({origin, {}});
}

void HeldLayer::clear() {
  segments_ = SegmentList();
  shapes_ = ShapeList();
  places_ = std::vector<ShapePlace>();
  openCount_ = 0;
  endsBox_ = {};
}

void HeldLayer::toChain(std::size_t index, Chain& chain) const {
  const geometry::Edge edge = segments_.edge(index);
  const Look& look = lookOf(segments_[index]);
  chain.path.vertices.resize(2);
  chain.path.vertices[0] = {edge.from, edge.curve};
  chain.path.vertices[1] = {edge.to, look.isCircle ? edge.curve : 0.0};
  chain.path.closed = look.isCircle;
  chain.look() = look.look();
}

Origin HeldLayer::originOf(const HeldSegment& segment) const {
  const Look& look = lookOf(segment);
  return {number_, look.kind, look.dxfLayer, segment.line()};
}

geometry::Box HeldLayer::bounds() const {
  geometry::Box box;
  for (std::size_t i = 0; i < segments_.size(); ++i) {
    const geometry::Edge edge = segments_.edge(i);
    box.add(geometry::bounds(geometry::Arc{edge.from, edge.to, edge.curve}));
    if (!lookOf(segments_[i]).isCircle) continue;
    box.add(geometry::bounds(geometry::Arc{edge.to, edge.from, edge.curve}));
  }
  for (std::size_t i = 0; i < shapes_.size(); ++i) {
    std::visit(
        [&box](const auto& shape) {
          if constexpr (!std::is_same_v<std::decay_t<decltype(shape)>, std::monostate>) {
            box.add(boundsOf(shape));
          }
        },
        shapes_[i].shape);
  }
  return box;
}

void HeldLayer::settle() {
  if (isSettled_) return;
  isSettled_ = true;
  // What replaces a segment comes after the shapes that came before it.
  std::sort(places_.begin(), places_.end(), [](const ShapePlace& a, const ShapePlace& b) {
    return std::pair(a.before, a.shape) < std::pair(b.before, b.shape);
  });
}

}  // namespace quillon::exact
