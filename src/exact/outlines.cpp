#include "exact/outlines.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "geometry/duplicates.h"
#include "geometry/end_grid.h"
#include "geometry/gaps.h"
#include "geometry/joining.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

constexpr int kDimensionLayer = 20;
constexpr int kMillingLayer = 46;
/// The largest drill before version 6, in millimetres.
constexpr double kLargestOldDrill = 13.1;

/// Numbers for what chains must share: width and style.
class Looks {
 public:
  std::size_t numberOf(const Chain& chain) {
    return numbers_.try_emplace(std::pair(chain.width, chain.style), numbers_.size()).first->second;
  }

 private:
  std::map<std::pair<double, Style>, std::size_t> numbers_;
};

struct CircleOfPath {
  Point centre;
  double radius;
};

/// The circle that a closed path goes round once, if it is one.
std::optional<CircleOfPath> circleOf(const Path& path, double resolution) {
  if (!path.closed || path.vertices.size() < 2) return std::nullopt;
  CircleOfPath circle{};
  double turn = 0.0;
  for (std::size_t i = 0; i < path.vertices.size(); ++i) {
    const geometry::Arc arc = geometry::arcAt(path, i);
    if (arc.curve == 0.0) return std::nullopt;
    turn += arc.curve;
    const Point centre = geometry::centre(arc);
    const double radius = geometry::radius(arc);
    if (i == 0) circle = {centre, radius};
    const double apart = geometry::distance(centre, circle.centre);
    if (!(apart <= resolution) || !(std::fabs(radius - circle.radius) <= resolution)) {
      return std::nullopt;
    }
  }
  constexpr double kNearlyNothing = 1e-3;  // degrees
  if (std::fabs(std::fabs(turn) - 360.0) > kNearlyNothing) return std::nullopt;
  return circle;
}

Path circlePathOf(Point centre, double radius) {
  return {{{{centre.x - radius, centre.y}, 180.0}, {{centre.x + radius, centre.y}, 180.0}}, true};
}

/// Single lines, arcs and circles: what can be drawn twice.
std::optional<geometry::Stroke> strokeOf(const Chain& chain, Looks& looks) {
  if (!chain.cleanable) return std::nullopt;
  geometry::Stroke stroke;
  stroke.layer = looks.numberOf(chain);
  if (chain.isCircle) {
    const Point left = chain.path.vertices[0].at;
    const Point right = chain.path.vertices[1].at;
    stroke.edge = {geometry::middle(left, right), right, 0.0};
    stroke.isCircle = true;
    return stroke;
  }
  if (chain.path.closed || chain.path.vertices.size() != 2) return std::nullopt;
  stroke.edge = {chain.path.vertices[0].at, chain.path.vertices[1].at,
                 chain.path.vertices[0].curve};
  return stroke;
}

/// Puts what is left of a stroke back into its chain.
void redraw(Chain& chain, const geometry::Stroke& stroke) {
  chain.isCircle = stroke.isCircle;
  if (stroke.isCircle) {
    chain.path =
        circlePathOf(stroke.edge.from, geometry::distance(stroke.edge.from, stroke.edge.to));
    return;
  }
  chain.path = {{{stroke.edge.from, stroke.edge.curve}, {stroke.edge.to}}, false};
  geometry::splitWideArcs(chain.path);
}

/// The open chains of a layer as pieces, and where they are held.
struct Pieces {
  std::vector<geometry::Piece> pieces;
  std::vector<std::size_t> held;
};

Pieces piecesOf(std::vector<HeldShape>& shapes) {
  Pieces result;
  Looks looks;
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    Chain* const chain = shapes[i].chain();
    if (chain == nullptr || !chain->cleanable || chain->path.closed) continue;
    result.pieces.push_back({std::move(chain->path), 0, looks.numberOf(*chain), chain->isArc});
    result.held.push_back(i);
  }
  return result;
}

void noteGaps(const std::vector<HeldShape>& shapes, const Pieces& pieces,
              const geometry::JoinedEnds& ends, OutlineReport& report) {
  const int layer = shapes.empty() ? 0 : shapes.front().origin.layer;
  std::vector<std::uint64_t> lines;
  lines.reserve(pieces.held.size());
  for (const std::size_t held : pieces.held) lines.push_back(shapes[held].origin.line);
  const std::vector<geometry::Gap> gaps = geometry::gapsOf(pieces.pieces, ends);
  report.gaps.reserve(report.gaps.size() + gaps.size());
  for (const geometry::Gap& gap : gaps) {
    OpenEnd end{layer, gap.end.at, lines[gap.end.piece]};
    if (gap.next) {
      end.hasNext = true;
      end.next = gap.next->at;
      end.nextLine = lines[gap.next->piece];
      end.distance = gap.distance;
    }
    report.gaps.push_back(end);
  }
}

bool hasClosedChains(const std::vector<HeldShape>& shapes) {
  return std::any_of(shapes.begin(), shapes.end(), [](const HeldShape& held) {
    const Chain* const chain = held.chain();
    return chain != nullptr && chain->cleanable && chain->path.closed;
  });
}

}  // namespace

void dropDuplicates(std::vector<HeldShape>& shapes, const Measures& measures, LossList& losses) {
  std::vector<geometry::Stroke> strokes;
  std::vector<std::size_t> held;
  Looks looks;
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    const Chain* const chain = shapes[i].chain();
    const auto stroke = chain != nullptr ? strokeOf(*chain, looks) : std::nullopt;
    if (!stroke) continue;
    strokes.push_back(*stroke);
    held.push_back(i);
  }
  const geometry::Cleaned cleaned = geometry::withoutDuplicates(strokes, measures.resolution);
  std::size_t left = 0;
  for (std::size_t i = 0; i < strokes.size(); ++i) {
    HeldShape& shape = shapes[held[i]];
    if (left < cleaned.from.size() && cleaned.from[left] == i) {
      if (cleaned.strokes[left] != strokes[i]) redraw(*shape.chain(), cleaned.strokes[left]);
      ++left;
      continue;
    }
    losses.add({LossRule::Duplicate, shape.origin.kind, shape.origin.dxfLayer, shape.origin.line,
                strokes[i].edge.from});
    shape.drop();
  }
}

void joinOutlines(std::vector<HeldShape>& shapes, const Options& options, const Measures& measures,
                  OutlineReport& report) {
  if (!options.chains && measures.join <= 0.0) return;
  Pieces pieces = piecesOf(shapes);
  const geometry::JoinedEnds ends = geometry::joinEnds(pieces.pieces, measures.join);
  report.joinedEnds += ends.moved;
  report.largestMove = std::max(report.largestMove, ends.largestMove);
  const int layer = shapes.empty() ? 0 : shapes.front().origin.layer;
  std::vector<geometry::Chain> chains;
  if (options.chains) {
    chains = geometry::chainsOf(pieces.pieces, ends);
  } else {
    for (std::size_t i = 0; i < pieces.pieces.size(); ++i) {
      chains.push_back({pieces.pieces[i].path, {i}});
    }
  }
  for (geometry::Chain& chain : chains) {
    const std::size_t first = *std::min_element(chain.pieces.begin(), chain.pieces.end());
    for (const std::size_t piece : chain.pieces) {
      if (piece != first) shapes[pieces.held[piece]].drop();
    }
    Chain& held = *shapes[pieces.held[first]].chain();
    held.path = std::move(chain.path);
    geometry::dropClosePoints(held.path, measures.resolution);
    geometry::splitWideArcs(held.path);
    ++(held.path.closed ? report.closedChains : report.openChains);
  }
  const bool isOutline = layer == kDimensionLayer || layer == kMillingLayer;
  if (isOutline || hasClosedChains(shapes)) noteGaps(shapes, pieces, ends, report);
}

void makeHoles(std::vector<HeldShape>& shapes, const Options& options, const Measures& measures) {
  const bool isPossible = options.target == Target::Board || options.target == Target::Package;
  if (options.holeLayers.empty() || !isPossible) return;
  const double most =
      std::min(options.holeMost * measures.millimetre, options.version == Version::Eagle4
                                                           ? kLargestOldDrill * measures.millimetre
                                                           : measures.widestWire);
  const double least = options.holeLeast * measures.millimetre;
  using Cell = std::pair<double, double>;
  std::map<Cell, std::pair<double, std::size_t>> smallest;
  const auto cellOf = [&](Point p) {
    return Cell(std::round(p.x / measures.resolution), std::round(p.y / measures.resolution));
  };
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    const Chain* const chain = shapes[i].chain();
    const auto& layers = options.holeLayers;
    if (chain == nullptr || !chain->cleanable ||
        std::find(layers.begin(), layers.end(), shapes[i].origin.dxfLayer) == layers.end()) {
      continue;
    }
    const auto circle = circleOf(chain->path, measures.resolution);
    if (!circle) continue;
    const double diameter = 2.0 * circle->radius;
    if (diameter < least - measures.resolution || diameter > most + measures.resolution) continue;
    const auto [found, isNew] =
        smallest.try_emplace(cellOf(circle->centre), std::pair(diameter, i));
    if (!isNew && diameter < found->second.first) found->second = {diameter, i};
  }
  for (const auto& [cell, hole] : smallest) {
    HeldShape& held = shapes[hole.second];
    const auto circle = circleOf(held.chain()->path, measures.resolution);
    held.shape = Hole{circle->centre, hole.first};
  }
}

}  // namespace quillon::exact
