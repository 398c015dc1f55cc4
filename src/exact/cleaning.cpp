#include "exact/cleaning.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>

#include "exact/text_layout.h"
#include "geometry/dashes.h"
#include "geometry/degrees.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

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

void extend(geometry::Box& box, const Segment& segment) {
  const geometry::Arc arc{segment.from, segment.to, segment.curve};
  box.add(arc.start);
  box.add(arc.end);
  if (arc.curve != 0.0 && !geometry::isSurelyWithin(arc, box)) box.add(geometry::bounds(arc));
}

/// Around the letters of a text, whose widths are guessed.
geometry::Box reachOf(const TextLine& text) {
  const auto before = [](auto side, auto atStart, auto inMiddle) {
    return side == atStart ? 0.0 : side == inMiddle ? 0.5 : 1.0;
  };
  const double length = kVectorFontWidth * text.height * static_cast<double>(text.content.size());
  Point along = geometry::unitVector(text.angle);
  Point up = geometry::leftOf(along);
  if (text.mirrored) {
    along.x = -along.x;
    up.x = -up.x;
  }
  const Point corner = text.at -
                       along * (length * before(text.columns, Columns::Left, Columns::Centre)) -
                       up * (text.height * before(text.rows, Rows::Bottom, Rows::Centre));
  const Point end = corner + along * length;
  geometry::Box box;
  for (const Point& p : {corner, end}) {
    box.add(p);
    box.add(p + up * text.height);
  }
  return box;
}

/// How far outside of a box endless lines end: a share of its sides. Where one has no length, as
/// around a level line, a line across it is to be seen all the same.
Point marginOf(const geometry::Box& box, double resolution) {
  constexpr double kShare = 0.05;
  const Point size = box.high - box.low;
  const double longer = std::max(size.x, size.y);
  return {kShare * (size.x < resolution ? longer : size.x),
          kShare * (size.y < resolution ? longer : size.y)};
}

}  // namespace

HeldLayer& Cleaning::layerOf(int number) {
  if (lastLayer_ != nullptr && lastLayer_->number() == number) return *lastLayer_;
  const auto [found, isNew] = layers_.try_emplace(number, number, looks_);
  lastLayer_ = &found->second;
  if (isNew) order_.push_back(lastLayer_);
  return *lastLayer_;
}

template <typename Shape>
void Cleaning::hold(const Origin& origin, Shape&& shape) {
  if (options_.holdsShapes()) {
    // Each waits to be cleaned and written after the last step.
    constexpr std::uint64_t kStepsPerShape = 8;
    if (poll_ != nullptr) poll_->addSteps(kStepsPerShape);
    return layerOf(origin.layer).hold(origin, std::forward<Shape>(shape));
  }
  if constexpr (std::is_same_v<std::decay_t<Shape>, Segment>) {
    extend(handedOn_, shape);
    next_.takeSegment(origin, shape);
  } else {
    if constexpr (std::is_same_v<std::decay_t<Shape>, Chain>) {
      geometry::extend(handedOn_, shape.path);
    } else {
      handedOn_.add(boundsOf(shape));
    }
    next_.take(origin, std::forward<Shape>(shape));
  }
}

void Cleaning::take(const Origin& origin, Chain&& chain) { hold(origin, std::move(chain)); }
void Cleaning::takeSegment(const Origin& origin, const Segment& segment) { hold(origin, segment); }
void Cleaning::take(const Origin& origin, Area&& area) { hold(origin, std::move(area)); }
void Cleaning::take(const Origin& origin, TextLine&& text) {
  // Of those that are held, few drawings ask.
  if (!options_.holdsShapes()) lettersHandedOn_.addPointsOf(reachOf(text));
  hold(origin, std::move(text));
}
void Cleaning::take(const Origin& origin, const Dot& dot) { hold(origin, dot); }
void Cleaning::take(const Origin& origin, const Hole& hole) { hold(origin, hole); }

geometry::Box Cleaning::bounds() const {
  geometry::Box box = handedOn_;
  for (const auto& [number, layer] : layers_) box.add(layer.bounds());
  return box;
}

geometry::Box Cleaning::letters() const {
  geometry::Box box = lettersHandedOn_;
  for (const auto& [number, layer] : layers_) {
    for (std::size_t i = 0; i < layer.shapes().size(); ++i) {
      const auto* const text = std::get_if<TextLine>(&layer.shapes()[i].shape);
      if (text != nullptr) box.addPointsOf(reachOf(*text));
    }
  }
  return box;
}

bool Cleaning::hasTexts() const {
  for (const auto& [number, layer] : layers_) {
    for (std::size_t i = 0; i < layer.shapes().size(); ++i) {
      if (std::holds_alternative<TextLine>(layer.shapes()[i].shape)) return true;
    }
  }
  return false;
}

void Cleaning::addReport(const OutlineReport& report, const geometry::Affine& place) {
  report_.closedChains += report.closedChains;
  report_.openChains += report.openChains;
  report_.joinedEnds += report.joinedEnds;
  report_.gapCount += report.gapCount;
  report_.largestMove = std::max(report_.largestMove, report.largestMove);
  for (OpenEnd gap : report.gaps) {
    gap.at = place(gap.at);
    gap.next = place(gap.next);
    report_.gaps.push_back(gap);
  }
}

void Cleaning::finish() {
  cutEndless();
  const geometry::StopCheck stop([this] { return poll_ != nullptr && (*poll_)(); });
  geometry::HashMemory memory;
  const CleaningRun run{stop, memory};
  for (HeldLayer* const layer : order_) {
    if (poll_ != nullptr && poll_->cancelled()) break;
    if (options_.dropDuplicates) dropDuplicates(*layer, measures_, losses_, run);
    joinOutlines(*layer, options_, measures_, losses_, report_, run);
    makeHoles(*layer, options_, measures_);
    handOn(*layer);
    layer->clear();
  }
  const auto nearer = [](const OpenEnd& a, const OpenEnd& b) {
    return std::pair(!a.hasNext, a.distance) < std::pair(!b.hasNext, b.distance);
  };
  // Those of each layer are in order.
  std::vector<OpenEnd>& gaps = report_.gaps;
  if (!std::is_sorted(gaps.begin(), gaps.end(), nearer)) {
    std::stable_sort(gaps.begin(), gaps.end(), nearer);
  }
  gaps.resize(std::min(gaps.size(), options_.mostGaps));
}

void Cleaning::cutEndless() {
  if (endless_.empty()) return;
  geometry::Box box = bounds();
  box.addPointsOf(letters());
  const Point margin = marginOf(box, measures_.resolution);
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
    holdPart(origin, line, line.start + way * from, line.start + way * part->second);
  }
}

void Cleaning::holdPart(const Origin& origin, const EndlessLine& line, Point from, Point to) {
  const auto lose = [&](LossRule rule) {
    losses_.add({rule, origin.kind, origin.dxfLayer, origin.line, line.start});
  };
  if (line.hasSolidInstead) lose(LossRule::DrawnSolid);
  Chain chain;
  chain.width = line.width;
  chain.style = line.style;
  chain.cleanable = false;
  geometry::Dashes parts = geometry::dashed({{{from}, {to}}, false}, line.dashes);
  if (parts.tooMany) lose(LossRule::TooManyDashes);
  for (Path& dash : parts.dashes) {
    chain.path = std::move(dash);
    hold(origin, Chain(chain));
    if (poll_ != nullptr && (*poll_)()) return;
  }
  for (const Point& centre : parts.dots) {
    hold(origin, Dot{centre, std::max(line.width, measures_.dot)});
  }
}

void Cleaning::handOn(HeldLayer& layer) {
  Chain chain;
  // Past the limit of steps, what is there is still wanted.
  const auto isWanted = [this] {
    return poll_ == nullptr || !(*poll_)() || !(poll_->cancelled() || poll_->isScriptFull());
  };
  layer.inOrder(
      [&](std::size_t i, const HeldSegment& held) {
        const Look& look = layer.lookOf(held);
        const Origin origin = layer.originOf(held);
        if (look.isCircle) {
          layer.toChain(i, chain);
          next_.take(origin, std::move(chain));
        } else {
          next_.takeSegment(origin, {look.look(), held.from, held.to, layer.segments().curve(i)});
        }
        return isWanted();
      },
      [&](std::size_t i) {
        HeldShape& held = layer.shapes()[i];
        std::visit(
            [&](auto& shape) {
              if constexpr (!std::is_same_v<std::decay_t<decltype(shape)>, std::monostate>) {
                next_.take(held.origin, std::move(shape));
              }
            },
            held.shape);
        return isWanted();
      });
}

}  // namespace quillon::exact
