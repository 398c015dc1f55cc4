#pragma once

#include <cstddef>
#include <cstdint>

#include "geometry/point.h"

namespace quillon::preview {

/// Pixels of 32 bits that dots and thin lines are drawn on, where a library for everything takes
/// too long. What is outside is left out.
class Raster {
 public:
  /// `pixels`: rows of `width`, `stride` pixels apart. They must outlive the raster.
  Raster(std::uint32_t* pixels, std::size_t stride, int width, int height)
      : pixels_(pixels), stride_(stride), width_(width), height_(height) {}

  int width() const { return width_; }
  int height() const { return height_; }

  /// A square of about this many pixels.
  void dot(geometry::Point at, double width, std::uint32_t colour);

  /// A line some pixels wide with soft edges, carried on a little at both ends, so that lines
  /// that meet leave no gap. Ends far outside are allowed, but have to be finite.
  void line(geometry::Point from, geometry::Point to, double width, std::uint32_t colour);

 private:
  /// What a line covers along its longer side: around `across`, which grows by `slope` from `along`
  /// on, by `half` on both sides.
  struct Stroke {
    double across;
    double slope;
    double along;
    double half;
  };
  void putAcross(const Stroke& stroke, int i, double share, bool isSteep, std::uint32_t colour);

  std::uint32_t* pixels_;
  std::size_t stride_;
  int width_;
  int height_;
};

/// The part of a line within 0..width and 0..height, widened by a margin. False when there is none.
bool clipLine(geometry::Point& from, geometry::Point& to, double width, double height,
              double margin);

}  // namespace quillon::preview
