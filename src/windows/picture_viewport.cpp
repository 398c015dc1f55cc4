#include "windows/picture_viewport.h"

#include <algorithm>
#include <cmath>

namespace quillon::windows {
namespace {

using geometry::Box;
using geometry::Point;

/// The largest scale: a pixel is a nanometre.
constexpr double kMostOctaves = 20.0;
/// Pixels from the origin that can be told apart, as a power of two, with room for sums.
constexpr double kExactOctaves = 48.0;
/// How many times as large as the drawing the view becomes, as a power of two.
constexpr int kAroundOctaves = 4;

/// What a view shows where there is no drawing, in millimetres.
Box nothing() { return {{-5.0, -5.0}, {105.0, 105.0}}; }

}  // namespace

double PictureViewport::scaleOf(int step) { return std::exp2(static_cast<double>(step) / kOctave); }

void PictureViewport::resize(QSize pixels) {
  const QSize wanted = pixels.expandedTo({1, 1});
  left_ -= std::floor((wanted.width() - size_.width()) / 2.0);
  top_ -= std::floor((wanted.height() - size_.height()) / 2.0);
  size_ = wanted;
}

int PictureViewport::stepFor(const Box& box) const {
  constexpr double kMargin = 0.06;  // on each side
  constexpr double kLeastSide = 1e-5;
  const double width = std::max(box.high.x - box.low.x, kLeastSide);
  const double height = std::max(box.high.y - box.low.y, kLeastSide);
  const double share = 1.0 - 2.0 * kMargin;
  const double scale = share * std::min(size_.width() / width, size_.height() / height);
  return static_cast<int>(std::floor(std::log2(scale) * kOctave));
}

int PictureViewport::limited(int step) const {
  const Box box = drawing_.empty() ? nothing() : drawing_;
  const double farthest = std::max({std::fabs(box.low.x), std::fabs(box.low.y),
                                    std::fabs(box.high.x), std::fabs(box.high.y), 1.0});
  const double most = std::min(kMostOctaves, kExactOctaves - std::log2(farthest));
  const int fitting = stepFor(box);
  const int highest = std::max(static_cast<int>(most * kOctave), fitting);
  return std::clamp(step, fitting - kAroundOctaves * kOctave, highest);
}

/// Scrolls so that this point is at a pixel.
void PictureViewport::place(Point mm, QPointF pixel) {
  const double scale = scaleOf(step_);
  left_ = std::round(mm.x * scale - pixel.x());
  top_ = std::round(-mm.y * scale - pixel.y());
}

void PictureViewport::fit() {
  const Box box = drawing_.empty() ? nothing() : drawing_;
  step_ = limited(stepFor(box));
  place(geometry::middle(box.low, box.high), {size_.width() / 2.0, size_.height() / 2.0});
}

void PictureViewport::zoom(int steps, QPointF pixel) {
  const Point fixed = plane().millimetres(pointOf(pixel));
  step_ = limited(step_ + steps);
  place(fixed, pixel);
}

void PictureViewport::pan(QPointF pixels) {
  // Nobody finds back from where coordinates lose their digits.
  const double most = std::exp2(kExactOctaves + 1.0);
  left_ = std::clamp(std::round(left_ - pixels.x()), -most, most);
  top_ = std::clamp(std::round(top_ - pixels.y()), -most, most);
}

void PictureViewport::show(Point mm) {
  constexpr double kTenth = 10.0;
  const Box box = drawing_.empty() ? nothing() : drawing_;
  const int close = stepFor(box) + static_cast<int>(std::log2(kTenth) * kOctave);
  step_ = limited(std::max(step_, close));
  place(mm, {size_.width() / 2.0, size_.height() / 2.0});
}

Point PictureViewport::middle() const {
  return plane().millimetres({size_.width() / 2.0, size_.height() / 2.0});
}

}  // namespace quillon::windows
