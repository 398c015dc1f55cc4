#include <cmath>
#include <cstdint>

#include "classic/curves.h"
#include "classic/lines.h"
#include "dxf/run_time_error.h"
#include "geometry/angles.h"

namespace quillon::classic {

using geometry::polarAngle;

namespace {

/// An ellipse by signed half axes and the direction of the major one.
class AxisForm {
 public:
  explicit AxisForm(const EllipseArc& ellipse) : cx_(ellipse.cx), cy_(ellipse.cy) {
    a_ = std::sqrt(ellipse.majorX * ellipse.majorX + ellipse.majorY * ellipse.majorY);
    // A negative half axis stands in for the missing quadrant correction of the angle: intended.
    if (ellipse.majorX < 0.0) a_ = -a_;
    b_ = a_ * ellipse.ratio;
    alpha_ = ellipse.majorX == 0.0 ? kPi / 2.0 : std::atan(ellipse.majorY / ellipse.majorX);
  }

  void pointAt(double t, double& x, double& y) const {
    const double flatX = a_ * std::cos(t);
    const double flatY = b_ * std::sin(t);
    const double r = std::sqrt(flatX * flatX + flatY * flatY);
    const double angle = polarAngle(flatX, flatY) + alpha_;
    x = cx_ + r * std::cos(angle);
    y = cy_ + r * std::sin(angle);
  }

 private:
  double cx_;
  double cy_;
  double a_ = 0.0;
  double b_ = 0.0;
  double alpha_ = 0.0;
};

}  // namespace

void writeEllipse(Context& context, const EllipseArc& ellipse, int segments, int layer,
                  const DashPattern* dashes) {
  if (layer == kNotConverted) return;
  if (!std::isfinite(ellipse.startParam) || !std::isfinite(ellipse.endParam)) {
    throw dxf::RunTimeError(dxf::Fault::BadNumber, {});
  }
  constexpr double kParameterTolerance = 1e-9;
  const AxisForm axes(ellipse);
  const double step = kPi / (2.0 * segments);
  const double end = ellipse.endParam;
  const double start = end < ellipse.startParam ? ellipse.startParam - kTwoPi : ellipse.startParam;

  if (!(start < end - kParameterTolerance)) return;  // one point makes no line

  double lastX = 0.0;
  double lastY = 0.0;
  axes.pointAt(start, lastX, lastY);
  const auto lineTo = [&](double t) {
    double x = 0.0;
    double y = 0.0;
    axes.pointAt(t, x, y);
    writeLine(context, lastX, lastY, x, y, layer, dashes, 0.0);
    lastX = x;
    lastY = y;
  };
  for (std::uint64_t i = 1;; ++i) {
    const double t = start + static_cast<double>(i) * step;
    if (!(t < end - kParameterTolerance)) break;
    if (context.cancelled()) return;
    lineTo(t);
  }
  lineTo(end);
}

}  // namespace quillon::classic
