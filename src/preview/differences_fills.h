#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry/stop_check.h"
#include "preview/differences_keys.h"
#include "preview/scene.h"
#include "preview/scene_tree.h"

namespace quillon::preview {

/// A filled area as a polygon, with its edges sorted into slabs of equal height, so that a point is
/// compared with few of them. Where it crosses itself it is filled as EAGLE does: wherever it winds
/// around.
class DifferenceArea {
 public:
  /// Where an edge crosses a level line.
  struct Crossing {
    double x;
    int turn;  ///< 1 for an edge upwards, -1 for one downwards
  };

  DifferenceArea(std::vector<geometry::Point> points, const DifferenceKeys& keys);

  const geometry::Box& box() const { return box_; }
  /// The same for areas with the same edges.
  std::uint64_t key() const { return key_; }
  /// Adds to `checks` the number of edges that it compared.
  bool contains(geometry::Point point, std::uint64_t& checks) const;
  /// The crossings with a level line, from left to right. Adds to `checks` as contains() does.
  void crossingsAt(double y, std::vector<Crossing>& crossings, std::uint64_t& checks) const;

 private:
  std::size_t slabCount() const { return starts_.size() - 1; }
  std::size_t slabOf(double y) const;
  /// Calls take(edge, slab) for each slab that an edge is in.
  template <typename Take>
  void visitSlabs(const Take& take) const;
  template <typename Take>
  void visitCrossings(double y, std::uint64_t& checks, const Take& take) const;

  std::vector<geometry::Point> points_;
  geometry::Box box_;
  std::uint64_t key_ = 0;
  std::vector<std::uint32_t> edges_;   ///< numbers of first points, slab by slab
  std::vector<std::uint32_t> starts_;  ///< of each slab in edges_, and the end
};

/// All filled areas and discs of a scene.
class DifferenceFills {
 public:
  DifferenceFills() = default;
  DifferenceFills(std::vector<DifferenceArea> areas, const geometry::StopCheck& stop);

  const std::vector<DifferenceArea>& all() const { return areas_; }
  /// Adds to `checks` the number of edges that it compared.
  bool contains(geometry::Point point, std::uint64_t& checks) const;
  /// Whether an area with the same edges is here: true only if so.
  bool has(const DifferenceArea& area) const;

 private:
  std::vector<DifferenceArea> areas_;
  std::vector<std::uint64_t> keys_;  ///< sorted
  SceneTree tree_;
};

}  // namespace quillon::preview
