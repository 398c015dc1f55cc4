#include "exact/cleaning.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

geometry::Box aroundDisc(Point centre, double diameter) {
  const Point radius{diameter / 2.0, diameter / 2.0};
  geometry::Box box;
  box.add(centre - radius);
  box.add(centre + radius);
  return box;
}

geometry::Box boundsOf(std::monostate) { return {}; }
geometry::Box boundsOf(const Chain& chain) { return geometry::bounds(chain.path); }
geometry::Box boundsOf(const Area& area) { return geometry::bounds(area.outline); }
geometry::Box boundsOf(const TextLine& text) { return {text.at, text.at}; }
geometry::Box boundsOf(const Dot& dot) { return aroundDisc(dot.centre, dot.diameter); }
geometry::Box boundsOf(const Hole& hole) { return aroundDisc(hole.centre, hole.drill); }

/// The part of a line inside of a box, as distances along its direction (a unit vector).
std::optional<std::pair<double, double>> within(const geometry::Box& box, Point start,
                                                Point direction) {
  double low = -std::numeric_limits<double>::infinity();
  double high = std::numeric_limits<double>::infinity();
  const auto cut = [&](double from, double way, double least, double most) {
    if (way == 0.0) return from >= least && from <= most;
    const double a = (least - from) / way;
    const double b = (most - from) / way;
    low = std::max(low, std::min(a, b));
    high = std::min(high, std::max(a, b));
    return low < high;
  };
  if (!cut(start.x, direction.x, box.low.x, box.high.x)) return std::nullopt;
  if (!cut(start.y, direction.y, box.low.y, box.high.y)) return std::nullopt;
  return std::pair(low, high);
}

}  // namespace

template <typename Shape>
void Cleaning::hold(const Origin& origin, Shape&& shape) {
  if (!options_.holdsShapes()) {
    handedOn_.add(boundsOf(shape));
    next_.take(origin, std::forward<Shape>(shape));
    return;
  }
  if (layers_.empty() || lastLayer_ != origin.layer) {
    const auto [found, isNew] = layers_.try_emplace(origin.layer);
    if (isNew) order_.push_back(origin.layer);
    lastLayer_ = origin.layer;
    lastShapes_ = &found->second;
  }
  lastShapes_->push_back({origin, std::forward<Shape>(shape)});
}

void Cleaning::take(const Origin& origin, Chain&& chain) { hold(origin, std::move(chain)); }
void Cleaning::take(const Origin& origin, Area&& area) { hold(origin, std::move(area)); }
void Cleaning::take(const Origin& origin, TextLine&& text) { hold(origin, std::move(text)); }
void Cleaning::take(const Origin& origin, const Dot& dot) { hold(origin, dot); }
void Cleaning::take(const Origin& origin, const Hole& hole) { hold(origin, hole); }

geometry::Box Cleaning::bounds() const {
  geometry::Box box = handedOn_;
  for (const auto& [layer, shapes] : layers_) {
    for (const HeldShape& held : shapes) {
      box.add(std::visit([](const auto& shape) { return boundsOf(shape); }, held.shape));
    }
  }
  return box;
}

bool Cleaning::hasTexts() const {
  for (const auto& [layer, shapes] : layers_) {
    for (const HeldShape& held : shapes) {
      if (std::holds_alternative<TextLine>(held.shape)) return true;
    }
  }
  return false;
}

void Cleaning::addReport(const OutlineReport& report, const geometry::Affine& place) {
  report_.closedChains += report.closedChains;
  report_.openChains += report.openChains;
  report_.joinedEnds += report.joinedEnds;
  report_.largestMove = std::max(report_.largestMove, report.largestMove);
  for (OpenEnd gap : report.gaps) {
    gap.at = place(gap.at);
    gap.next = place(gap.next);
    report_.gaps.push_back(gap);
  }
}

void Cleaning::finish() {
  cutEndless();
  for (const int layer : order_) {
    std::vector<HeldShape>& shapes = layers_[layer];
    if (options_.dropDuplicates) dropDuplicates(shapes, measures_, losses_);
    joinOutlines(shapes, options_, measures_, report_);
    makeHoles(shapes, options_, measures_);
    for (HeldShape& held : shapes) handOn(held);
    shapes = {};
  }
  const auto nearer = [](const OpenEnd& a, const OpenEnd& b) {
    return std::pair(!a.hasNext, a.distance) < std::pair(!b.hasNext, b.distance);
  };
  // Those of each layer are in order.
  std::vector<OpenEnd>& gaps = report_.gaps;
  if (!std::is_sorted(gaps.begin(), gaps.end(), nearer)) {
    std::stable_sort(gaps.begin(), gaps.end(), nearer);
  }
}

void Cleaning::cutEndless() {
  if (endless_.empty()) return;
  constexpr double kMargin = 0.05;
  geometry::Box box = bounds();
  const Point margin = (box.high - box.low) * kMargin;
  if (!box.empty()) box = {box.low - margin, box.high + margin};
  const std::vector<HeldEndless> lines = std::move(endless_);
  endless_.clear();
  for (const auto& [origin, line] : lines) {
    const LossList::Event event{LossRule::EndlessCut, origin.kind, origin.dxfLayer, origin.line,
                                line.start};
    const Point way = geometry::unit(line.direction);
    const auto part = box.empty() ? std::nullopt : within(box, line.start, way);
    const double from = part ? (line.bothWays ? part->first : std::max(part->first, 0.0)) : 0.0;
    if (!part || from >= part->second) {
      LossList::Event alone = event;
      alone.rule = LossRule::EndlessAlone;
      losses_.add(alone);
      continue;
    }
    losses_.add(event);
    Chain chain;
    chain.path = {{{line.start + way * from}, {line.start + way * part->second}}, false};
    chain.width = line.width;
    chain.cleanable = false;
    hold(origin, std::move(chain));
  }
}

void Cleaning::handOn(HeldShape& held) {
  std::visit(
      [&](auto& shape) {
        if constexpr (!std::is_same_v<std::remove_reference_t<decltype(shape)>, std::monostate>) {
          next_.take(held.origin, std::move(shape));
        }
      },
      held.shape);
}

}  // namespace quillon::exact
