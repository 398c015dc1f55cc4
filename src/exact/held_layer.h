#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

#include "exact/shapes.h"
#include "geometry/box.h"

namespace quillon::exact {

geometry::Box boundsOf(const Chain& chain);
geometry::Box boundsOf(const Area& area);
/// Of texts, only where they are.
geometry::Box boundsOf(const TextLine& text);
geometry::Box boundsOf(const Dot& dot);
geometry::Box boundsOf(const Hole& hole);

/// What many chains share; all but their path and line.
struct Look {
  std::string_view kind;
  std::string_view dxfLayer;
  double width = 0.0;
  Style style = Style::Continuous;
  bool cleanable = true;
  bool isArc = false;
  bool isCircle = false;
  std::uint32_t pen = 0;  ///< equal numbers are equal widths and styles
};

/// The looks of all chains, each kept once.
class Looks {
 public:
  std::uint32_t numberOf(const Origin& origin, const Chain& chain);
  /// The number of a width and style.
  std::uint32_t penOf(const Chain& chain);
  const Look& operator[](std::uint32_t number) const { return looks_[number]; }

 private:
  using Key = std::tuple<std::string_view, std::string_view, double, Style, bool, bool, bool>;

  static Key keyOf(const Look& look);
  static bool areSame(const Look& a, const Look& b);

  std::vector<Look> looks_;
  std::array<std::uint32_t, 64> recent_{};  ///< numbers that came lately
  std::map<Key, std::uint32_t> numbers_;
  std::map<std::pair<double, Style>, std::uint32_t> pens_;
};

/// A chain of one line or arc, or a circle by its two halves. Drawings may have millions of them.
struct HeldSegment {
  Point from;
  Point to;
  double curve = 0.0;
  std::uint64_t line = 0;
  std::uint32_t look = 0;
  bool isDropped = false;  ///< another shape has taken it in
};

/// Any other shape, or nothing where another one has taken it in.
struct HeldShape {
  Origin origin;
  std::variant<std::monostate, Chain, Area, TextLine, Dot, Hole> shape;

  Chain* chain() { return std::get_if<Chain>(&shape); }
  const Chain* chain() const { return std::get_if<Chain>(&shape); }
  void drop() { shape = std::monostate(); }
};

/// Items in blocks, so that adding some moves none.
template <typename T>
class BlockList {
 public:
  std::size_t size() const { return size_; }
  T& operator[](std::size_t i) { return blocks_[i / kBlock][i % kBlock]; }
  const T& operator[](std::size_t i) const { return blocks_[i / kBlock][i % kBlock]; }
  T& back() { return blocks_.back().back(); }

  T& add(T item) {
    if (size_++ % kBlock == 0) blocks_.emplace_back().reserve(kBlock);
    return blocks_.back().emplace_back(std::move(item));
  }

 private:
  static constexpr std::size_t kBlock = 512;

  std::vector<std::vector<T>> blocks_;
  std::size_t size_ = 0;
};

using SegmentList = BlockList<HeldSegment>;
using ShapeList = BlockList<HeldShape>;

/// The shapes of one layer in the order of the drawing.
class HeldLayer {
 public:
  HeldLayer(int number, Looks& looks) : number_(number), looks_(looks) {}

  int number() const { return number_; }
  void hold(const Origin& origin, Chain&& chain);
  template <typename Shape>
  void hold(const Origin& origin, Shape&& shape) {
    addShape(origin, segments_.size()).shape = std::forward<Shape>(shape);
  }

  const SegmentList& segments() const { return segments_; }
  SegmentList& segments() { return segments_; }
  const ShapeList& shapes() const { return shapes_; }
  ShapeList& shapes() { return shapes_; }
  const Look& lookOf(const HeldSegment& segment) const { return looks_[segment.look]; }
  std::uint32_t penOf(const Chain& chain) { return looks_.penOf(chain); }
  std::size_t size() const { return segments_.size() + shapes_.size(); }

  /// The segment as a chain; its vertices are put where those of the chain are.
  void toChain(const HeldSegment& segment, Chain& chain) const;
  Origin originOf(const HeldSegment& segment) const;
  geometry::Box bounds() const;

  /// Puts a shape in the place of a segment; settle() has to follow.
  template <typename Shape>
  void replaceSegment(std::size_t index, Shape&& shape) {
    HeldSegment& segment = segments_[index];
    segment.isDropped = true;
    isSettled_ = false;
    addShape(originOf(segment), index).shape = std::forward<Shape>(shape);
  }
  void settle();
  /// Gives all memory back.
  void clear();

  /// Calls onSegment(index) and onShape(index) for what is not dropped, in the order of the
  /// drawing, until one of them returns false.
  template <typename OnSegment, typename OnShape>
  void inOrder(OnSegment&& onSegment, OnShape&& onShape) const {
    std::size_t next = 0;
    for (std::size_t i = 0; i < segments_.size(); ++i) {
      for (; next < places_.size() && places_[next].before <= i; ++next) {
        if (!onShape(places_[next].shape)) return;
      }
      if (!segments_[i].isDropped && !onSegment(i)) return;
    }
    for (; next < places_.size(); ++next) {
      if (!onShape(places_[next].shape)) return;
    }
  }

 private:
  /// Where a shape comes in the order of the drawing.
  struct ShapePlace {
    std::size_t before;  ///< the segment that comes after it
    std::size_t shape;   ///< its index
  };

  HeldShape& addShape(const Origin& origin, std::size_t before);

  int number_;
  Looks& looks_;
  SegmentList segments_;
  ShapeList shapes_;
  std::vector<ShapePlace> places_;  ///< in their order, once settled
  bool isSettled_ = true;
};

}  // namespace quillon::exact
