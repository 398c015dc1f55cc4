#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "exact/held_segments.h"
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
struct Look : ChainLook {
  std::string_view kind;
  std::string_view dxfLayer;
  std::uint32_t pen = 0;  ///< equal numbers are equal widths and styles
};

/// The looks of all chains, each kept once.
class Looks {
 public:
  std::uint32_t numberOf(const Origin& origin, const ChainLook& chain) {
    std::uint32_t& recent = recent_[placeOf(origin)];
    if (recent < looks_.size() && isOf(looks_[recent], origin, chain)) return recent;
    return recent = searchedNumberOf(origin, chain);
  }
  /// The number of a width and style.
  std::uint32_t penOf(const ChainLook& chain);
  const Look& operator[](std::uint32_t number) const { return looks_[number]; }

 private:
  using Key = std::tuple<std::string_view, std::string_view, double, Style, bool, bool, bool>;
  static constexpr unsigned kRecentBits = 6;

  static std::size_t placeOf(const Origin& origin) {
    const auto place = reinterpret_cast<std::uintptr_t>(origin.dxfLayer.data());
    constexpr std::uint64_t kMixing = 0x9e3779b97f4a7c15U;
    return static_cast<std::size_t>((place + origin.kind.size()) * kMixing >> (64 - kRecentBits));
  }
  /// Names are kept once each, so that their places tell most of them.
  static bool isOf(const Look& look, const Origin& origin, const ChainLook& chain) {
    return look.kind.data() == origin.kind.data() && look.kind.size() == origin.kind.size() &&
           look.dxfLayer.data() == origin.dxfLayer.data() &&
           look.dxfLayer.size() == origin.dxfLayer.size() && look.look() == chain;
  }
  std::uint32_t searchedNumberOf(const Origin& origin, const ChainLook& chain);

  std::vector<Look> looks_;
  std::array<std::uint32_t, std::size_t{1} << kRecentBits> recent_{};  ///< numbers that came lately
  std::map<Key, std::uint32_t> numbers_;
  std::map<std::pair<double, Style>, std::uint32_t> pens_;
};

/// Any other shape, or nothing where another one has taken it in.
struct HeldShape {
  Origin origin;
  std::variant<std::monostate, Chain, Area, TextLine, Dot, Hole> shape;

  Chain* chain() { return std::get_if<Chain>(&shape); }
  const Chain* chain() const { return std::get_if<Chain>(&shape); }
  void drop() { shape = std::monostate(); }
};

using ShapeList = BlockList<HeldShape>;

/// The shapes of one layer in the order of the drawing.
class HeldLayer {
 public:
  HeldLayer(int number, Looks& looks) : number_(number), looks_(looks) {}

  int number() const { return number_; }
  void hold(const Origin& origin, Chain&& chain);
  void hold(const Origin& origin, const Segment& segment) {
    addSegment(origin, segment, {segment.from, segment.to, segment.curve});
  }
  template <typename Shape>
  requires(!std::is_same_v<std::decay_t<Shape>, Segment>) void hold(const Origin& origin,
                                                                    Shape&& shape) {
    addShape(origin, segments_.size()).shape = std::forward<Shape>(shape);
  }

  const SegmentList& segments() const { return segments_; }
  /// Changes the course of a segment, between ends that were held.
  void setEdge(std::size_t index, const geometry::Edge& edge) { segments_.setEdge(index, edge); }
  void dropSegment(std::size_t index);
  const ShapeList& shapes() const { return shapes_; }
  ShapeList& shapes() { return shapes_; }
  const Look& lookOf(const HeldSegment& segment) const { return looks_[segment.look()]; }
  std::uint32_t penOf(const Chain& chain) { return looks_.penOf(chain); }
  std::size_t size() const { return segments_.size() + shapes_.size(); }

  /// How many lines, arcs and open polylines may be cleaned, and a box around the ends of all that
  /// may and of closed ones; what was dropped may be in that.
  std::size_t openCount() const { return openCount_; }
  const geometry::Box& endsBox() const { return endsBox_; }

  /// The segment as a chain; its vertices are put where those of the chain are.
  void toChain(std::size_t index, Chain& chain) const;
  Origin originOf(const HeldSegment& segment) const;
  geometry::Box bounds() const;

  /// Puts a shape in the place of a segment; settle() has to follow.
  template <typename Shape>
  void replaceSegment(std::size_t index, Shape&& shape) {
    dropSegment(index);
    isSettled_ = false;
    addShape(originOf(segments_[index]), index).shape = std::forward<Shape>(shape);
  }
  void settle();
  /// Gives all memory back.
  void clear();

  /// Calls onSegment(index, segment) and onShape(index) for what is not dropped, in the order of
  /// the drawing, until one of them returns false.
  template <typename OnSegment, typename OnShape>
  void inOrder(OnSegment&& onSegment, OnShape&& onShape) const {
    std::size_t i = 0;
    const auto walkTo = [&](std::size_t end) {
      for (; i < end; ++i) {
        const HeldSegment& segment = segments_[i];
        if (!segment.isDropped() && !onSegment(i, segment)) return false;
      }
      return true;
    };
    for (const ShapePlace& place : places_) {
      if (!walkTo(place.before) || !onShape(place.shape)) return;
    }
    walkTo(segments_.size());
  }

 private:
  /// Where a shape comes in the order of the drawing.
  struct ShapePlace {
    std::size_t before;  ///< the segment that comes after it
    std::size_t shape;   ///< its index
  };

  void addSegment(const Origin& origin, const ChainLook& look, const geometry::Edge& edge);
  HeldShape& addShape(const Origin& origin, std::size_t before);

  int number_;
  Looks& looks_;
  SegmentList segments_;
  ShapeList shapes_;
  std::vector<ShapePlace> places_;  ///< in their order, once settled
  bool isSettled_ = true;
  std::size_t openCount_ = 0;
  geometry::Box endsBox_;
};

}  // namespace quillon::exact
