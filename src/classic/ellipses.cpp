#include <cmath>
#include <cstdint>

#include "base/run_time_error.h"
#include "classic/curves.h"
#include "classic/lines.h"
#include "geometry/trigonometry.h"

namespace quillon::classic {

using geometry::arcTangent;
using geometry::cosine;
using geometry::sine;

namespace {

/// A vector as a signed length and an angle from -pi/2 to pi/2; a negative length replaces the
/// quadrant correction of the angle. A vector with x = 0 points straight up, whatever its y. The
/// last digits of scripts depend on this form.
struct SignedPolar {
  SignedPolar(double x, double y)
      : length(std::sqrt(x * x + y * y)), angle(x == 0.0 ? kPi / 2.0 : arcTangent(y / x)) {
    if (x < 0.0) length = -length;
  }

  double length;
  double angle;
};

/// An ellipse by its signed half axes and the direction of the major one.
class AxisForm {
 public:
  explicit AxisForm(const EllipseArc& ellipse)
      : cx_(ellipse.cx),
        cy_(ellipse.cy),
        major_(ellipse.majorX, ellipse.majorY),
        minor_(major_.length * ellipse.ratio) {}

  void pointAt(double t, double& x, double& y) const {
    const SignedPolar flat(major_.length * cosine(t), minor_ * sine(t));
    const double angle = flat.angle + major_.angle;
    x = cx_ + flat.length * cosine(angle);
    y = cy_ + flat.length * sine(angle);
  }

 private:
  double cx_;
  double cy_;
  SignedPolar major_;
  double minor_;
};

}  // namespace

void writeEllipse(Context& context, const EllipseArc& ellipse, int segments, int layer,
                  const DashPattern* dashes) {
  if (layer == kNotConverted) return;
  if (!std::isfinite(ellipse.startParam) || !std::isfinite(ellipse.endParam)) {
    throw base::RunTimeError(base::Fault::BadNumber, {});
  }
  constexpr double kParameterTolerance = 1e-9;
  const AxisForm axes(ellipse);
  const double step = kPi / (2.0 * segments);
  const double end = ellipse.endParam;
  const double start = end < ellipse.startParam ? ellipse.startParam - kTwoPi : ellipse.startParam;

  if (!(start < end - kParameterTolerance)) return;  // a single point is not a line

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
