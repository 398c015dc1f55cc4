#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "exact/outlines.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// The largest drill before version 6, in millimetres.
constexpr double kLargestOldDrill = 13.1;

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

/// The smallest circle in each place, which becomes a hole.
class CircleHoles {
 public:
  CircleHoles(HeldLayer& layer, const Options& options, const Measures& measures)
      : layer_(layer),
        layers_(options.holeLayers),
        resolution_(measures.resolution),
        least_(options.holeLeast * measures.millimetre),
        most_(std::min(options.holeMost * measures.millimetre,
                       options.version == Version::Eagle4 ? kLargestOldDrill * measures.millimetre
                                                          : measures.widestWire)) {}

  void make() {
    Chain chain;
    layer_.inOrder(
        [&](std::size_t i, const HeldSegment& segment) {
          const Look& look = layer_.lookOf(segment);
          if (!look.isCircle || !isWanted(look.dxfLayer)) return true;
          layer_.toChain(i, chain);
          consider(chain, {i, false});
          return true;
        },
        [&](std::size_t i) {
          const HeldShape& held = layer_.shapes()[i];
          if (held.chain() == nullptr || !isWanted(held.origin.dxfLayer)) return true;
          consider(*held.chain(), {i, true});
          return true;
        });
    for (const auto& [cell, found] : smallest_) {
      if (found.place.second) {
        layer_.shapes()[found.place.first].shape = found.hole;
      } else {
        layer_.replaceSegment(found.place.first, found.hole);
      }
    }
    layer_.settle();
  }

 private:
  using Cell = std::pair<double, double>;
  using HeldPlace = std::pair<std::size_t, bool>;  ///< the index, and whether it is of a shape
  struct Found {
    Hole hole;
    HeldPlace place;
  };

  bool isWanted(std::string_view dxfLayer) const {
    return std::find(layers_.begin(), layers_.end(), dxfLayer) != layers_.end();
  }

  void consider(const Chain& chain, HeldPlace place) {
    if (!chain.cleanable) return;
    const auto circle = circleOf(chain.path, resolution_);
    if (!circle) return;
    const double diameter = 2.0 * circle->radius;
    if (diameter < least_ - resolution_ || diameter > most_ + resolution_) return;
    const Cell cell(std::round(circle->centre.x / resolution_),
                    std::round(circle->centre.y / resolution_));
    const Found here{{circle->centre, diameter}, place};
    const auto [found, isNew] = smallest_.try_emplace(cell, here);
    if (!isNew && diameter < found->second.hole.drill) found->second = here;
  }

  HeldLayer& layer_;
  const std::vector<std::string>& layers_;
  double resolution_;
  double least_;
  double most_;
  std::map<Cell, Found> smallest_;
};

}  // namespace

void makeHoles(HeldLayer& layer, const Options& options, const Measures& measures) {
  const bool isPossible = options.target == Target::Board || options.target == Target::Package;
  if (options.holeLayers.empty() || !isPossible) return;
  CircleHoles(layer, options, measures).make();
}

}  // namespace quillon::exact
