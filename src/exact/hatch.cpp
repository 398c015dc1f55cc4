#include "exact/hatch.h"

#include <algorithm>
#include <span>
#include <utility>

#include "exact/hatch_loops.h"
#include "exact/hatch_pattern.h"
#include "exact/hatch_reader.h"
#include "geometry/area.h"
#include "geometry/loops.h"

namespace quillon::exact {
namespace {

using geometry::NestedFill;

/// How many edges may be looked at to find which loops are in which. Beyond that there are
/// thousands of loops, one within or above the other.
constexpr double kMostNestingWork = 1e7;
/// Likewise for faces, which takes less memory.
constexpr double kMostFaceWork = 1e8;

/// About how many edges lie above and below the first points of all loops.
double nestingWork(std::span<const Path> loops) {
  std::vector<double> lefts;
  std::vector<double> rights;
  for (const Path& loop : loops) {
    for (std::size_t i = 0; i < loop.vertices.size(); ++i) {
      const double from = loop.vertices[i].at.x;
      const double to = loop.vertices[(i + 1) % loop.vertices.size()].at.x;
      lefts.push_back(std::min(from, to));
      rights.push_back(std::max(from, to));
    }
  }
  std::sort(lefts.begin(), lefts.end());
  std::sort(rights.begin(), rights.end());
  double work = 0.0;
  for (const Path& loop : loops) {
    const double x = loop.vertices.front().at.x;
    const auto begun = std::upper_bound(lefts.begin(), lefts.end(), x) - lefts.begin();
    const auto ended = std::lower_bound(rights.begin(), rights.end(), x) - rights.begin();
    work += static_cast<double>(begun - ended);
  }
  return work;
}

/// The loops of a hatch, and which of them count.
class HatchArea {
 public:
  HatchArea(std::vector<Path> loops, NestedFill nesting)
      : loops_(std::move(loops)), crosses_(geometry::crossOrTouch(loops_)) {
    const double work = nestingWork(loops_);
    if (work > kMostNestingWork) {
      crosses_ = true;
      isTooIntricate_ = work > kMostFaceWork || nesting != NestedFill::everySecond;
      return;
    }
    // Where loops cross themselves, their depth tells nothing.
    if (nesting != NestedFill::everySecond && !anyCrossesItself()) keepUpTo(nesting);
    if (!crosses_) regions_ = geometry::nestLoops(loops_, nesting).regions;
  }

  /// Each second area that they enclose is filled.
  const std::vector<Path>& loops() const { return loops_; }
  /// So many loops are in each other that it is not worked out which of them count.
  bool isTooIntricate() const { return isTooIntricate_; }

  void fill(const Item& item, Canvas& canvas) const {
    if (isTooIntricate_) return canvas.lose(item, LossRule::AreaTooIntricate);
    if (crosses_) return canvas.evenOddArea(item, loops_);
    for (const geometry::Region& region : regions_) {
      if (canvas.step()) return;
      canvas.region(item, region);
    }
  }

  void border(const Item& item, Canvas& canvas, const Canvas::Stroke& how) const {
    for (const Path& loop : loops_) {
      if (canvas.step()) return;
      canvas.stroke(item, loop, Affine{}, how);
    }
  }

 private:
  bool anyCrossesItself() const {
    return crosses_ && std::any_of(loops_.begin(), loops_.end(),
                                   [](const Path& loop) { return geometry::crossesItself(loop); });
  }

  /// Leaves out the loops that are too deep in others.
  void keepUpTo(NestedFill nesting) {
    const std::size_t deepest = nesting == NestedFill::outermost ? 1 : 0;
    const std::vector<std::size_t> depths = geometry::depths(loops_);
    std::vector<Path> kept;
    for (std::size_t i = 0; i < loops_.size(); ++i) {
      if (depths[i] <= deepest) kept.push_back(std::move(loops_[i]));
    }
    const bool allAreKept = kept.size() == depths.size();
    loops_ = std::move(kept);
    if (crosses_ && !allAreKept) crosses_ = geometry::crossOrTouch(loops_);
  }

  std::vector<Path> loops_;
  bool crosses_;
  bool isTooIntricate_ = false;
  std::vector<geometry::Region> regions_;
};

constexpr Canvas::Stroke kHatchBorder{.width = {}, .cleanable = false, .solid = true};

/// What is drawn of a hatch once its loops are known.
class HatchDrawing {
 public:
  HatchDrawing(const Item& item, Canvas& canvas, const HatchGroups& hatch, const HatchArea& area)
      : item_(item),
        canvas_(canvas),
        hatch_(hatch),
        area_(area),
        hasBorder_(item.entity.kind == Kind::MPolygon) {}

  void draw() {
    const bool isPattern = !hatch_.isSolid && !hatch_.isGradient;
    if (isPattern && hasBorder_ && hatch_.families.empty()) return;
    if (isPattern && canvas_.options().hatch == HatchStyle::None) {
      return canvas_.lose(item_, LossRule::HatchLeftOut);
    }
    if (!canvas_.fills()) return border();
    if (isPattern) return drawPatternOrInstead();
    if (hatch_.isGradient) canvas_.lose(item_, LossRule::GradientAsArea);
    area_.fill(item_, canvas_);
  }

 private:
  /// An MPOLYGON has its own already.
  void border() {
    if (!hasBorder_) area_.border(item_, canvas_, kHatchBorder);
  }

  void borderInstead(LossRule rule) {
    canvas_.lose(item_, rule);
    border();
  }

  void drawPatternOrInstead() {
    if (canvas_.options().hatch == HatchStyle::Border) {
      return borderInstead(LossRule::HatchOtherStyle);
    }
    if (canvas_.options().hatch == HatchStyle::Solid) {
      canvas_.lose(item_, LossRule::HatchOtherStyle);
      return area_.fill(item_, canvas_);
    }
    if (hatch_.families.empty()) return borderInstead(LossRule::HatchWithoutLines);
    const Affine map = item_.objectMap(hatch_.elevation);
    if (area_.isTooIntricate() ||
        !drawPattern(item_, canvas_, area_.loops(), hatch_.families, map)) {
      borderInstead(LossRule::HatchTooFine);
    }
  }

  const Item& item_;
  Canvas& canvas_;
  const HatchGroups& hatch_;
  const HatchArea& area_;
  bool hasBorder_;
};

}  // namespace

void drawHatch(const Item& item, Canvas& canvas) {
  const HatchGroups hatch = readHatch(item, canvas);
  std::vector<Path> loops = hatchLoops(item, canvas, hatch);
  if (loops.empty()) return canvas.lose(item, LossRule::NoSize);
  if (item.entity.kind == Kind::MPolygon) {
    for (const Path& loop : loops) canvas.stroke(item, loop, Affine{});
  }
  const HatchArea area(std::move(loops), hatch.nesting);
  HatchDrawing(item, canvas, hatch, area).draw();
}

}  // namespace quillon::exact
