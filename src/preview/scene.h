#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "eagle/recording.h"
#include "geometry/arc.h"
#include "geometry/box.h"
#include "geometry/stop_check.h"
#include "preview/scene_tree.h"

namespace quillon::preview {

// What a layer of a scene has. Lengths are millimetres; nothing is out of sight or not a number.

struct SceneLine {
  geometry::Point from;
  geometry::Point to;

  bool operator==(const SceneLine&) const = default;
};

struct SceneArc {
  geometry::Arc arc;  ///< never straight
  float width = 0.0F;
};

struct SceneCircle {
  geometry::Point centre;
  double radius = 0.0;
  float width = 0.0F;
  bool filled = false;
};

/// A corner of an area. A curve, in degrees, belongs to the edge that starts here.
struct SceneCorner {
  geometry::Point at;
  float curve = 0.0F;
};

/// Takes what is visited, a kind at a time. Each function returns false to end the visit.
class SceneVisitor {
 public:
  virtual ~SceneVisitor() = default;
  /// Straight lines with round ends, each with its width.
  virtual bool lines(std::span<const SceneLine> lines, std::span<const float> widths) = 0;
  virtual bool arc(const SceneArc& arc) = 0;
  virtual bool circle(const SceneCircle& circle) = 0;
  /// A filled area, whose outline is drawn with a pen of this width.
  virtual bool area(std::span<const SceneCorner> corners, float width) = 0;
  /// Millimetres and UTF-8; letteringOf() gives the strokes.
  virtual bool text(const eagle::RecordedText& text) = 0;
};

/// Things of one kind and where they are.
template <typename Thing>
struct SceneThings {
  std::vector<Thing> things;
  SceneTree tree;
};

/// One of EAGLE's layers.
class SceneLayer {
 public:
  explicit SceneLayer(int number) : number_(number) {}

  int number() const { return number_; }
  /// Lines, arcs, circles (with holes), areas and texts.
  std::size_t objectCount() const;
  /// Straight lines and arcs.
  std::size_t segmentCount() const { return lines_.size() + arcs_.things.size(); }
  /// Around everything with its widths.
  const geometry::Box& bounds() const { return bounds_; }
  /// Everything that may touch the box; some of it may not. Areas come first, texts last.
  void visit(const geometry::Box& box, SceneVisitor& visitor) const;
  std::size_t bytes() const;

 private:
  friend class SceneLayerBuilder;

  struct Area {
    std::uint32_t first = 0;  ///< of its corners
    std::uint32_t count = 0;
    float width = 0.0F;
  };

  int number_;
  geometry::Box bounds_;
  // Lines and their widths are apart, which saves the room between them.
  std::vector<SceneLine> lines_;
  std::vector<float> widths_;
  SceneTree lineTree_;
  SceneThings<SceneArc> arcs_;
  SceneThings<SceneCircle> circles_;
  SceneThings<Area> areas_;
  std::vector<SceneCorner> corners_;
  SceneThings<eagle::RecordedText> texts_;
};

/// What a script draws, as somebody sees it who looks at one sheet: like Figure, but on its own, in
/// millimetres, with library parts placed, and fast to ask for what is in some place. Does not
/// change, so that threads can share it.
class Scene {
 public:
  /// In the order in which they are drawn: by number.
  const std::vector<SceneLayer>& layers() const { return layers_; }
  /// Null for a layer with nothing on it.
  const SceneLayer* layer(int number) const;
  /// Around everything; empty where there is nothing.
  const geometry::Box& bounds() const { return bounds_; }
  /// EAGLE's largest coordinate; 0 where there is none.
  double limit() const { return limit_; }
  std::size_t segmentCount() const;
  std::size_t objectCount() const;
  /// Library parts that would have made the picture too large; they are not shown.
  std::size_t partsLeftOut() const { return partsLeftOut_; }
  /// The memory that it takes.
  std::size_t bytes() const;

 private:
  friend class SceneBuilder;

  std::vector<SceneLayer> layers_;
  geometry::Box bounds_;
  double limit_ = 0.0;
  std::size_t partsLeftOut_ = 0;
};

/// Objects of library parts that are placed at most; a script that places parts in parts can mean
/// any number.
inline constexpr std::size_t kMostPlacedObjects = 8'000'000;

/// Null when stopped.
std::shared_ptr<const Scene> makeScene(const eagle::Recording& recording,
                                       const geometry::StopCheck& stop = {},
                                       std::size_t mostPlaced = kMostPlacedObjects);

}  // namespace quillon::preview
