#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

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

  /// By cosine and sine of the parameter.
  Point pointAt(Point unit) const {
    const SignedPolar flat(major_.length * unit.x, minor_ * unit.y);
    const double angle = flat.angle + major_.angle;
    return {cx_ + flat.length * cosine(angle), cy_ + flat.length * sine(angle)};
  }

 private:
  double cx_;
  double cy_;
  SignedPolar major_;
  double minor_;
};

Point unitAt(double parameter) { return {cosine(parameter), sine(parameter)}; }

double stepOf(int segments) { return kPi / (2.0 * segments); }

/// The steps of ellipses that start at 0, which nearly all do, once and for all.
const std::vector<Point>& stepsFromZero(Context& context) {
  std::vector<Point>& steps = context.ellipseSteps;
  constexpr std::size_t kCount = std::size_t{kEllipseSegments} * 4;
  for (int i = 0; steps.size() < kCount; ++i) {
    steps.push_back(unitAt(i * stepOf(kEllipseSegments)));
  }
  return steps;
}

}  // namespace

void writeEllipse(Context& context, const EllipseArc& ellipse, int segments, int layer,
                  const DashPattern* dashes) {
  if (layer == kNotConverted) return;
  if (!std::isfinite(ellipse.startParam) || !std::isfinite(ellipse.endParam)) {
    throw base::RunTimeError(base::Fault::BadNumber, {});
  }
  constexpr double kParameterTolerance = 1e-9;
  const AxisForm axes(ellipse);
  const double step = stepOf(segments);
  const double end = ellipse.endParam;
  const double start = end < ellipse.startParam ? ellipse.startParam - kTwoPi : ellipse.startParam;

  if (!(start < end - kParameterTolerance)) return;  // a single point is not a line

  const std::vector<Point> none;
  const bool hasSteps = start == 0.0 && segments == kEllipseSegments;
  const std::vector<Point>& steps = hasSteps ? stepsFromZero(context) : none;
  Point last = axes.pointAt(unitAt(start));
  const auto lineTo = [&](Point unit) {
    const Point next = axes.pointAt(unit);
    writeLine(context, last.x, last.y, next.x, next.y, layer, dashes, 0.0);
    last = next;
  };
  for (std::uint64_t i = 1;; ++i) {
    const double t = start + static_cast<double>(i) * step;
    if (!(t < end - kParameterTolerance)) break;
    if (context.cancelled()) return;
    lineTo(i < steps.size() ? steps[static_cast<std::size_t>(i)] : unitAt(t));
  }
  lineTo(unitAt(end));
}

}  // namespace quillon::classic
