#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "geometry/path_arcs.h"
#include "geometry/point.h"

namespace quillon::exact {

/// A chain of one line or arc, or a circle by its two halves. Drawings may have millions of them.
class HeldSegment {
 public:
  /// Looks have numbers below this.
  static constexpr std::uint32_t kMostLooks = std::uint32_t{1} << 27;

  /// Of lines past the last number that there is room for, nobody tells which one it is.
  HeldSegment(geometry::Point start, geometry::Point end, std::uint64_t lineOfFile,
              std::uint32_t lookNumber)
      : from(start), to(end), rest_(std::min(lineOfFile, kMostLines) << kLineShift | lookNumber) {}

  geometry::Point from;
  geometry::Point to;

  std::uint64_t line() const { return rest_ >> kLineShift; }
  std::uint32_t look() const { return static_cast<std::uint32_t>(rest_ % kMostLooks); }
  /// Another shape has taken it in.
  bool isDropped() const { return (rest_ & kDropped) != 0; }
  void drop() { rest_ |= kDropped; }

 private:
  static constexpr std::uint64_t kDropped = kMostLooks;
  static constexpr unsigned kLineShift = 28;
  static constexpr std::uint64_t kMostLines = (std::uint64_t{1} << (64 - kLineShift)) - 1;

  std::uint64_t rest_;  ///< in one word: much of the time goes into getting so much memory
};

/// Items in blocks, so that adding some moves none.
template <typename T>
class BlockList {
 public:
  static constexpr std::size_t kBlock = 512;

  std::size_t size() const { return size_; }
  T& operator[](std::size_t i) { return blocks_[i / kBlock][i % kBlock]; }
  const T& operator[](std::size_t i) const { return blocks_[i / kBlock][i % kBlock]; }
  T& back() { return blocks_.back().back(); }

  T& add(T item) {
    if (size_++ % kBlock == 0) addBlock();
    return blocks_.back().emplace_back(std::move(item));
  }

 private:
  void addBlock() { blocks_.emplace_back().reserve(kBlock); }

  std::vector<std::vector<T>> blocks_;
  std::size_t size_ = 0;
};

/// Segments in the order of the drawing. Those of lines take no room for a curve.
class SegmentList {
 public:
  std::size_t size() const { return segments_.size(); }
  const HeldSegment& operator[](std::size_t i) const { return segments_[i]; }

  void add(const HeldSegment& segment, double curve) {
    const std::size_t index = segments_.size();
    if (index % kBlock == 0) curves_.emplace_back();
    segments_.add(segment);
    if (curve != 0.0) setCurve(index, curve);
  }

  double curve(std::size_t i) const {
    const std::vector<double>& curves = curves_[i / kBlock];
    return curves.empty() ? 0.0 : curves[i % kBlock];
  }
  geometry::Edge edge(std::size_t i) const {
    const HeldSegment& segment = segments_[i];
    return {segment.from, segment.to, curve(i)};
  }
  void setEdge(std::size_t i, const geometry::Edge& edge) {
    segments_[i].from = edge.from;
    segments_[i].to = edge.to;
    if (edge.curve != curve(i)) setCurve(i, edge.curve);
  }
  void drop(std::size_t i) { segments_[i].drop(); }

 private:
  static constexpr std::size_t kBlock = BlockList<HeldSegment>::kBlock;

  void setCurve(std::size_t i, double curve) {
    std::vector<double>& curves = curves_[i / kBlock];
    if (curves.empty()) curves.assign(kBlock, 0.0);
    curves[i % kBlock] = curve;
  }

  BlockList<HeldSegment> segments_;
  std::vector<std::vector<double>> curves_;  ///< by blocks; none for a block without arcs
};

}  // namespace quillon::exact
