#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>
#include <utility>

#include "geometry/area.h"
#include "geometry/bands.h"
#include "geometry/path_arcs.h"

namespace quillon::geometry {
namespace {

constexpr double kSmooth = 1e-9;   ///< sine of a turn that is none
constexpr double kNoArea = 1e-12;  ///< of a piece, as a share of the square of half the width

/// The edge moved to its left, around the same centre; what would pass the centre ends there.
Edge movedLeft(const Edge& edge, double by) {
  if (edge.curve > 0.0 && circleOf(edge).radius <= by) {
    const Point centre = circleOf(edge).centre;
    return {centre, centre, edge.curve};
  }
  return {edge.from + leftOf(directionAt(edge, 0.0)) * by,
          edge.to + leftOf(directionAt(edge, 1.0)) * by, edge.curve};
}

struct Turn {
  Point before;  ///< directions at the vertex
  Point after;

  bool isSmooth() const {
    return std::fabs(cross(before, after)) < kSmooth && dot(before, after) > 0.0;
  }
  bool toLeft() const { return cross(before, after) >= 0.0; }
  /// From the vertex to the tip of the mitre at the left, for borders `by` away; none beyond
  /// twice the width.
  std::optional<Point> mitre(double by) const {
    const double share = 1.0 + dot(before, after);
    const Point tip = leftOf(before + after) * (by / share);
    if (!(share > 0.0) || norm(tip) > 4.0 * by) return std::nullopt;
    return tip;
  }
};

/// Where an edge last meets another one: fractions of both.
std::optional<std::pair<double, double>> lastMeeting(const Edge& one, const Edge& other) {
  std::vector<Point> points;
  if (other.curve == 0.0 || one.curve == 0.0) {
    const Edge& straight = one.curve == 0.0 ? one : other;
    const Edge& any = one.curve == 0.0 ? other : one;
    for (const double at : fractionsOnLine(any, straight.from, straight.to - straight.from)) {
      points.push_back(pointAt(any, at));
    }
  } else {
    const Circle a = circleOf(one);
    const Circle b = circleOf(other);
    const Point way = b.centre - a.centre;
    const double apart = norm(way);
    const double along = (apart * apart + a.radius * a.radius - b.radius * b.radius) / (2 * apart);
    const double aside = std::sqrt(a.radius * a.radius - along * along);
    if (!(aside >= 0.0)) return std::nullopt;
    const Point unit = way * (1.0 / apart);
    for (const double side : {-aside, aside}) {
      points.push_back(a.centre + unit * along + leftOf(unit) * side);
    }
  }
  std::optional<std::pair<double, double>> best;
  const double near = 1e-9 * (norm(one.to - one.from) + norm(other.to - other.from));
  for (const Point p : points) {
    const std::pair at{fractionOf(one, p), fractionOf(other, p)};
    if (norm(pointAt(one, at.first) - p) > near || norm(pointAt(other, at.second) - p) > near) {
      continue;
    }
    if (!best || at.first > best->first) best = at;
  }
  return best;
}

/// The border at the left of a path.
class LeftBorder {
 public:
  LeftBorder(const Path& path, double by) : path_(path), by_(by) {
    for (std::size_t i = 0; i < edgeCount(path); ++i) {
      sides_.push_back({movedLeft(edgeAt(path, i), by), 0.0, 1.0, {}});
    }
    const std::size_t count = sides_.size();
    for (std::size_t i = 0; i + (path.closed ? 0 : 1) < count; ++i) {
      joinSides(i, (i + 1) % count);
    }
  }

  /// None when edges are too short for their bends.
  std::optional<Path> build() const {
    Path border{.vertices = {}, .closed = path_.closed};
    if (!good_) return std::nullopt;
    for (const Side& side : sides_) {
      if (!(side.first < side.last)) return std::nullopt;
      Edge edge = partOf(side.edge, side.first, side.last);
      if (edge.from == edge.to) edge.curve = 0.0;
      border.vertices.push_back({edge.from, edge.curve});
      border.vertices.push_back({edge.to});
      for (const Point p : side.after) border.vertices.push_back({p});
    }
    return border;
  }

 private:
  struct Side {
    Edge edge;
    double first;  ///< fractions of the edge between which it is used
    double last;
    std::vector<Point> after;  ///< corners on the way to the next one
  };

  void joinSides(std::size_t index, std::size_t next) {
    const Edge edge = edgeAt(path_, index);
    const Turn turn{directionAt(edge, 1.0), directionAt(edgeAt(path_, next), 0.0)};
    Side& one = sides_[index];
    Side& other = sides_[next];
    if (turn.isSmooth()) return;
    if (turn.toLeft()) {
      const auto meeting = lastMeeting(one.edge, other.edge);
      good_ = good_ && meeting;
      if (meeting) std::tie(one.last, other.first) = *meeting;
    } else if (const auto tip = turn.mitre(by_)) {
      one.after.push_back(edge.to + *tip);
    }
  }

  const Path& path_;
  double by_;
  bool good_ = true;
  std::vector<Side> sides_;
};

/// Leaves out points between straight edges in one line, which mitres leave.
Path withoutStraightCorners(const Path& path) {
  Path kept{.vertices = {}, .closed = path.closed};
  const std::size_t count = path.vertices.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Edge before = edgeAt(path, (i + count - 1) % count);
    const Edge after = edgeAt(path, i);
    const Turn turn{directionAt(before, 1.0), directionAt(after, 0.0)};
    if (before.curve == 0.0 && after.curve == 0.0 && turn.isSmooth()) continue;
    kept.vertices.push_back(path.vertices[i]);
  }
  return kept;
}

/// Borders of neighbours meet but for rounding.
Path cleaned(const Path& outline, double by) {
  return withoutStraightCorners(withoutShortEdges(outline, 1e-9 * by));
}

std::optional<Region> openBand(const Path& path, double by) {
  const auto left = LeftBorder(path, by).build();
  const auto right = LeftBorder(reversed(path), by).build();
  if (!left || !right) return std::nullopt;
  Path outline{left->vertices, true};
  outline.vertices.insert(outline.vertices.end(), right->vertices.begin(), right->vertices.end());
  return Region{cleaned(reversed(outline), by), {}};
}

std::optional<Region> closedBand(const Path& path, double by) {
  const auto left = LeftBorder(path, by).build();
  const auto right = LeftBorder(reversed(path), by).build();
  if (!left || !right) return std::nullopt;
  Path outer = cleaned(reversed(*left), by);
  Path inner = cleaned(reversed(*right), by);
  if (signedArea(outer) < signedArea(inner)) std::swap(outer, inner);
  if (inner.vertices.size() < 2) return Region{outer, {}};
  return Region{outer, {inner}};
}

bool isSimple(const Region& region) {
  std::vector<Path> rings = region.holes;
  rings.push_back(region.outer);
  if (!(signedArea(region.outer) > 0.0)) return false;
  if (!region.holes.empty() && !(signedArea(region.holes.front()) < 0.0)) return false;
  return !crossOrTouch(rings);
}

/// A region for each edge and for the outer side of each corner. Corners at which the path turns
/// back have none.
std::vector<Region> inPieces(const Path& path, double by) {
  std::vector<Region> pieces;
  const auto add = [&pieces, by](Path outline) {
    outline.closed = true;
    outline = cleaned(outline, by);
    if (outline.vertices.size() < 2) return;
    const double area = signedArea(outline);
    if (std::fabs(area) <= kNoArea * by * by) return;
    pieces.push_back({area < 0.0 ? reversed(outline) : outline, {}});
  };
  const std::size_t count = edgeCount(path);
  for (std::size_t i = 0; i < count; ++i) {
    const Edge edge = edgeAt(path, i);
    const Edge left = movedLeft(edge, by);
    const Edge right = movedLeft(reversed(edge), by);
    add({{{left.from, left.from == left.to ? 0.0 : left.curve},
          {left.to},
          {right.from, right.from == right.to ? 0.0 : right.curve},
          {right.to}},
         true});
    if (!path.closed && i + 1 == count) break;
    Turn turn{directionAt(edge, 1.0), directionAt(edgeAt(path, (i + 1) % count), 0.0)};
    if (turn.isSmooth()) continue;
    // Seen backwards, the outer side of a bend to the left is at the left.
    if (turn.toLeft()) turn = {turn.after * -1.0, turn.before * -1.0};
    Path corner{{{edge.to}, {edge.to + leftOf(turn.before) * by}}, true};
    if (const auto tip = turn.mitre(by)) corner.vertices.push_back({edge.to + *tip});
    corner.vertices.push_back({edge.to + leftOf(turn.after) * by});
    add(corner);
  }
  return pieces;
}

}  // namespace

std::vector<Region> bandAreas(const Path& path, double width) {
  if (!isUsable(path) || !(width > 0.0) || width > 1e100) return {};
  const Path clean = withoutShortEdges(path, 0.0);
  if (clean.vertices.size() < 2) return {};
  const double by = width / 2.0;
  const auto region = clean.closed ? closedBand(clean, by) : openBand(clean, by);
  if (region && isSimple(*region)) return {*region};
  return inPieces(clean, by);
}

}  // namespace quillon::geometry
