#include "exact/held_layer.h"

#include <algorithm>

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

Looks::Key Looks::keyOf(const Look& look) {
  return {look.kind,      look.dxfLayer, look.width,   look.style,
          look.cleanable, look.isArc,    look.isCircle};
}

std::uint32_t Looks::numberOf(const Origin& origin, const Chain& chain) {
  Look look{origin.kind,     origin.dxfLayer, chain.width,    chain.style,
            chain.cleanable, chain.isArc,     chain.isCircle, 0};
  const auto place = reinterpret_cast<std::uintptr_t>(look.dxfLayer.data());
  std::uint32_t& recent = recent_[(place / 8 + look.kind.size()) % recent_.size()];
  if (recent < looks_.size() && areSame(looks_[recent], look)) return recent;
  const auto [found, isNew] =
      numbers_.try_emplace(keyOf(look), static_cast<std::uint32_t>(looks_.size()));
  if (isNew) {
    look.pen = penOf(chain);
    looks_.push_back(look);
  }
  recent = found->second;
  return recent;
}

/// Names are kept once each, so that their places tell most of them.
bool Looks::areSame(const Look& a, const Look& b) {
  const auto isSame = [](std::string_view one, std::string_view other) {
    return one.data() == other.data() && one.size() == other.size();
  };
  return isSame(a.kind, b.kind) && isSame(a.dxfLayer, b.dxfLayer) && a.width == b.width &&
         a.style == b.style && a.cleanable == b.cleanable && a.isArc == b.isArc &&
         a.isCircle == b.isCircle;
}

std::uint32_t Looks::penOf(const Chain& chain) {
  const auto count = static_cast<std::uint32_t>(pens_.size());
  return pens_.try_emplace(std::pair(chain.width, chain.style), count).first->second;
}

void HeldLayer::hold(const Origin& origin, Chain&& chain) {
  if (!isSegment(chain)) {
    addShape(origin, segments_.size()).shape = std::move(chain);
    return;
  }
  const std::vector<geometry::Vertex>& vertices = chain.path.vertices;
  segments_.add({.from = vertices[0].at,
                 .to = vertices[1].at,
                 .curve = vertices[0].curve,
                 .line = origin.line,
                 .look = looks_.numberOf(origin, chain)});
}

HeldShape& HeldLayer::addShape(const Origin& origin, std::size_t before) {
  places_.push_back({before, shapes_.size()});
  return shapes_.add({origin, {}});
}

void HeldLayer::clear() {
  segments_ = SegmentList();
  shapes_ = ShapeList();
  places_ = std::vector<ShapePlace>();
}

void HeldLayer::toChain(const HeldSegment& segment, Chain& chain) const {
  const Look& look = lookOf(segment);
  chain.path.vertices.resize(2);
  chain.path.vertices[0] = {segment.from, segment.curve};
  chain.path.vertices[1] = {segment.to, look.isCircle ? segment.curve : 0.0};
  chain.path.closed = look.isCircle;
  chain.width = look.width;
  chain.style = look.style;
  chain.cleanable = look.cleanable;
  chain.isArc = look.isArc;
  chain.isCircle = look.isCircle;
}

Origin HeldLayer::originOf(const HeldSegment& segment) const {
  const Look& look = lookOf(segment);
  return {number_, look.kind, look.dxfLayer, segment.line};
}

geometry::Box HeldLayer::bounds() const {
  geometry::Box box;
  for (std::size_t i = 0; i < segments_.size(); ++i) {
    const HeldSegment& segment = segments_[i];
    box.add(geometry::bounds(geometry::Arc{segment.from, segment.to, segment.curve}));
    if (!lookOf(segment).isCircle) continue;
    box.add(geometry::bounds(geometry::Arc{segment.to, segment.from, segment.curve}));
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
