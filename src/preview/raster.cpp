#include "preview/raster.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "preview/line_part.h"

namespace quillon::preview {
namespace {

using geometry::Point;

/// A share of a colour over another one, part by part; 0..256.
std::uint32_t mixed(std::uint32_t under, std::uint32_t over, std::uint32_t share) {
  constexpr std::uint32_t kOuter = 0x00FF00FFU;
  constexpr std::uint32_t kInner = 0x0000FF00U;
  const std::uint32_t rest = 256U - share;
  const std::uint32_t outer = ((under & kOuter) * rest + (over & kOuter) * share) >> 8U;
  const std::uint32_t inner = ((under & kInner) * rest + (over & kInner) * share) >> 8U;
  return 0xFF000000U | (outer & kOuter) | (inner & kInner);
}

}  // namespace

bool clipLine(Point& from, Point& to, double width, double height, double margin) {
  const Point way{to.x - from.x, to.y - from.y};
  LinePart part;
  const bool isThere =
      part.narrow(from.x + margin, way.x) && part.narrow(width + margin - from.x, -way.x) &&
      part.narrow(from.y + margin, way.y) && part.narrow(height + margin - from.y, -way.y);
  if (!isThere) return false;
  if (part.last < 1.0) to = {from.x + way.x * part.last, from.y + way.y * part.last};
  if (part.first > 0.0) from = {from.x + way.x * part.first, from.y + way.y * part.first};
  return true;
}

void Raster::dot(Point at, double width, std::uint32_t colour) {
  const double reach = 0.5 * std::max(std::round(width), 1.0);
  // In this form it is also false for what is not a number.
  if (!(at.x > -reach && at.y > -reach && at.x < width_ + reach && at.y < height_ + reach)) return;
  const int left = std::max(static_cast<int>(std::floor(at.x - reach + 0.5)), 0);
  const int top = std::max(static_cast<int>(std::floor(at.y - reach + 0.5)), 0);
  const int right = std::min(static_cast<int>(std::floor(at.x + reach + 0.5)), width_);
  const int bottom = std::min(static_cast<int>(std::floor(at.y + reach + 0.5)), height_);
  for (int y = top; y < bottom; ++y) {
    std::uint32_t* const row = pixels_ + static_cast<std::size_t>(y) * stride_;
    for (int x = left; x < right; ++x) row[x] = colour;
  }
}

void Raster::line(Point from, Point to, double width, std::uint32_t colour) {
  const double half = 0.5 * width;
  if (!clipLine(from, to, width_, height_, half + 2.0)) return;
  const Point way{to.x - from.x, to.y - from.y};
  const bool isSteep = std::fabs(way.y) > std::fabs(way.x);
  // Along the longer side, a pixel at a time.
  double along = isSteep ? from.y : from.x;
  double alongEnd = isSteep ? to.y : to.x;
  double across = isSteep ? from.x : from.y;
  const double wayAlong = isSteep ? way.y : way.x;
  const double slope = wayAlong == 0.0 ? 0.0 : (isSteep ? way.x : way.y) / wayAlong;
  if (alongEnd < along) {
    std::swap(along, alongEnd);
    across = isSteep ? to.x : to.y;
  }
  const double stretch = std::sqrt(1.0 + slope * slope);
  // As far as neither a gap nor a double coat shows where lines meet.
  const double carry = 0.5 * half / stretch;
  across -= slope * carry;
  along -= carry;
  alongEnd += carry;
  const Stroke stroke{across, slope, along, half * stretch};
  const int last = isSteep ? height_ : width_;
  const int start = std::max(static_cast<int>(std::floor(along)), 0);
  const int end = std::min(static_cast<int>(std::floor(alongEnd)) + 1, last);
  for (int i = start; i < end; ++i) {
    const double share = std::min(i + 1.0, alongEnd) - std::max(static_cast<double>(i), along);
    putAcross(stroke, i, share, isSteep, colour);
  }
}

/// The pixels of a stroke at one place along it.
void Raster::putAcross(const Stroke& stroke, int i, double share, bool isSteep,
                       std::uint32_t colour) {
  const double middle = stroke.across + (i + 0.5 - stroke.along) * stroke.slope;
  const double low = middle - stroke.half;
  const double high = middle + stroke.half;
  const int first = std::max(static_cast<int>(std::floor(low)), 0);
  const int end = std::min(static_cast<int>(std::ceil(high)), isSteep ? width_ : height_);
  const auto place = static_cast<std::size_t>(i);
  for (int row = first; row < end; ++row) {
    const double covered = std::min(row + 1.0, high) - std::max(static_cast<double>(row), low);
    const auto at = static_cast<std::size_t>(row);
    std::uint32_t& pixel = pixels_[isSteep ? place * stride_ + at : at * stride_ + place];
    pixel = mixed(pixel, colour, static_cast<std::uint32_t>(256.0 * covered * share));
  }
}

}  // namespace quillon::preview
