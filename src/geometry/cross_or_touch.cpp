#include <algorithm>
#include <set>
#include <tuple>

#include "base/ranges.h"
#include "geometry/area.h"

namespace quillon::geometry {
namespace {

/// A line sweeps over the pieces from left to right and keeps those that it meets, in order from
/// below. The first two that cross become neighbours in that order before it reaches the crossing.
class Sweep {
 public:
  Sweep(std::span<const Path> paths, double tolerance)
      : paths_(paths), tolerance_(tolerance), status_(Below{this}) {
    for (std::size_t i = 0; i < paths.size(); ++i) {
      firsts_.push_back(pieces_.size());
      addMonotonePieces(paths[i], i, pieces_);
    }
    firsts_.push_back(pieces_.size());
  }

  bool finds() { return equalVertices() || neighboursMeet() || sweepMeets(); }

 private:
  struct Below {
    Sweep* sweep;
    bool operator()(std::size_t a, std::size_t b) const { return a != b && sweep->isBelow(a, b); }
  };
  using Status = std::set<std::size_t, Below>;
  struct Event {
    Point at;
    bool starts;
    std::size_t piece;
  };

  /// Edges with a vertex in common, or the same edge.
  bool areNeighbours(const MonotonePiece& a, const MonotonePiece& b) const {
    if (a.ring != b.ring) return false;
    const std::size_t count = paths_[a.ring].vertices.size();
    const std::size_t apart = a.edge > b.edge ? a.edge - b.edge : b.edge - a.edge;
    return apart <= 1 || apart + 1 == count;
  }

  bool piecesMeet(std::size_t a, std::size_t b) const {
    const MonotonePiece& one = pieces_[a];
    const MonotonePiece& other = pieces_[b];
    if (one.ring == other.ring && one.edge == other.edge) return false;
    const bool neighbours = areNeighbours(one, other);
    return meet(one, other, neighbours, neighbours ? 0.0 : tolerance_);
  }

  /// The order of two pieces that the line meets at the left end of the later one.
  bool isBelow(std::size_t a, std::size_t b) {
    const MonotonePiece& one = pieces_[a];
    const MonotonePiece& other = pieces_[b];
    if (const int side = sideAtStart(one, other); side != 0) return side < 0;
    if (one.left != other.left || !areNeighbours(one, other)) {
      met_ = true;
      return a < b;
    }
    // From a common point they go apart.
    int side = 0;
    if (one.right == other.right) {
      side = other.sideOf(pointAt(one.asEdge(), 0.5));
    } else if (one.right.x <= other.right.x) {
      side = other.sideOf(one.right);
    } else {
      side = -one.sideOf(other.right);
    }
    if (side == 0) met_ = true;
    return side != 0 ? side < 0 : a < b;
  }

  /// The side of `other` on which `one` lies where the later one starts.
  static int sideAtStart(const MonotonePiece& one, const MonotonePiece& other) {
    if (one.left == other.left) return 0;
    if (std::tie(one.left.x, one.left.y) < std::tie(other.left.x, other.left.y)) {
      return -one.sideOf(other.left);
    }
    return other.sideOf(one.left);
  }

  bool equalVertices() const {
    std::vector<std::pair<double, double>> points;
    for (const Path& path : paths_) {
      const std::size_t first = points.size();
      for (const Vertex& vertex : path.vertices) {
        const std::pair at{vertex.at.x, vertex.at.y};
        if (points.size() == first || points.back() != at) points.push_back(at);
      }
      if (points.size() > first + 1 && points[first] == points.back()) points.pop_back();
    }
    base::ranges::sort(points);
    return base::ranges::adjacent_find(points) != points.end();
  }

  /// The piece `steps` further on in the same ring.
  std::size_t further(std::size_t piece, std::size_t steps) const {
    const std::size_t ring = pieces_[piece].ring;
    const std::size_t at = piece + steps;
    return at < firsts_[ring + 1] ? at : at - (firsts_[ring + 1] - firsts_[ring]);
  }

  bool neighboursMeet() const {
    // Pieces are in the order of their edges, of which each has one to three.
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      const std::size_t ring = pieces_[i].ring;
      const std::size_t count = firsts_[ring + 1] - firsts_[ring];
      for (std::size_t k = 1; k <= 5 && k < count; ++k) {
        const std::size_t next = further(i, k);
        if (areNeighbours(pieces_[i], pieces_[next]) && piecesMeet(i, next)) return true;
      }
    }
    return false;
  }

  std::vector<Event> events() const {
    std::vector<Event> events;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      events.push_back({pieces_[i].left, true, i});
      events.push_back({pieces_[i].right, false, i});
    }
    base::ranges::sort(events, {}, [](const Event& event) {
      return std::tuple(event.at.x, event.at.y, event.starts, event.piece);
    });
    return events;
  }

  bool sweepMeets() {
    std::vector<Status::iterator> places(pieces_.size(), status_.end());
    for (const Event& event : events()) {
      if (event.starts) {
        if (starts(event.piece, places)) return true;
      } else if (ends(event.piece, places)) {
        return true;
      }
    }
    return false;
  }

  bool starts(std::size_t piece, std::vector<Status::iterator>& places) {
    const auto place = status_.insert(piece).first;
    if (met_) return true;
    places[piece] = place;
    if (place != status_.begin() && piecesMeet(*std::prev(place), piece)) return true;
    const auto next = std::next(place);
    return next != status_.end() && piecesMeet(piece, *next);
  }

  bool ends(std::size_t piece, const std::vector<Status::iterator>& places) {
    const auto next = status_.erase(places[piece]);
    if (next == status_.end() || next == status_.begin()) return false;
    return piecesMeet(*std::prev(next), *next);
  }

  std::span<const Path> paths_;
  double tolerance_;
  std::vector<MonotonePiece> pieces_;
  std::vector<std::size_t> firsts_;  ///< each path's first piece, and the end of all
  Status status_;
  bool met_ = false;
};

}  // namespace

bool crossOrTouch(std::span<const Path> paths, double tolerance) {
  std::vector<Path> closed(paths.begin(), paths.end());
  for (Path& path : closed) {
    if (!isUsable(path)) return true;
    path = withoutShortEdges(path, 0.0);
    path.closed = true;
  }
  return Sweep(closed, tolerance).finds();
}

}  // namespace quillon::geometry
