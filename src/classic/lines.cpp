#include "classic/lines.h"

#include <cmath>

#include "base/run_time_error.h"

namespace quillon::classic {
namespace {

void writeWire(eagle::Commands& commands, double width, double x1, double y1, double x2,
               double y2) {
  commands.wire({.width = std::fabs(width), .from = {x1, y1}, .to = {x2, y2}});
}

/// The dashes of one line. Each step uses the length and direction of the whole line, from a start
/// point that moves along.
class DashedLine {
 public:
  DashedLine(Context& context, double& x1, double& y1, double x2, double y2, int layer,
             double width)
      : context_(context),
        x_(x1),
        y_(y1),
        dx_(x2 - x1),
        dy_(y2 - y1),
        length_(std::sqrt(dx_ * dx_ + dy_ * dy_)),
        layer_(layer),
        width_(width) {}

  double length() const { return length_; }

  void write(const DashPattern& pattern) {
    context_.commands.layer(layer_);
    DashWalk walk(pattern);
    double item = 0.0;
    while (travelled_ <= length_ && walk.next(travelled_, item)) {
      if (context_.cancelled()) return;
      if (item == 0.0) {
        writePoint(context_, x_, y_, layer_);
      } else {
        advance(item * context_.settings.ltScale);
      }
      // Before the first dash the end point is the origin, so a leading dot moves the line's start
      // there; kept so that scripts stay the same.
      x_ = endX_;
      y_ = endY_;
    }
  }

 private:
  void advance(double dash) {
    const bool drawn = dash > 0.0;
    double step = std::fabs(dash);
    if (drawn && step + travelled_ > length_) step = length_ - travelled_;
    if (!std::isfinite(step)) throw base::RunTimeError(base::Fault::BadDashLength, {});
    travelled_ += step;
    const double t = step / length_;
    endX_ = x_ + t * dx_;
    endY_ = y_ + t * dy_;
    if (!drawn || step == 0.0) return;
    writeWire(context_.commands, width_, x_, y_, endX_, endY_);
  }

  Context& context_;
  double& x_;
  double& y_;
  double dx_;
  double dy_;
  double length_;
  int layer_;
  double width_;
  double travelled_ = 0.0;
  double endX_ = 0.0;
  double endY_ = 0.0;
};

/// Radius of a dot when the drawing sets no point size: 0.1 mm, but a tenth of that in mil.
double defaultPointRadius(base::Unit unit) {
  switch (unit) {
    case base::Unit::Mic:
      return 100.0;
    case base::Unit::None:
    case base::Unit::Mm:
      return 0.1;
    case base::Unit::Mil:
      return 0.394;
    default:
      return 0.00394;
  }
}

}  // namespace

void writeLine(Context& context, double& x1, double& y1, double x2, double y2, int layer,
               const DashPattern* dashes, double width) {
  if (layer == kNotConverted) return;
  if (dashes != nullptr) {
    DashedLine line(context, x1, y1, x2, y2, layer, width);
    if (!std::isfinite(line.length())) throw base::RunTimeError(base::Fault::BadDashLength, {});
    if (line.length() != 0.0) {
      line.write(*dashes);
      return;
    }
  }
  context.commands.layer(layer);
  writeWire(context.commands, width, x1, y1, x2, y2);
}

void writePoint(Context& context, double x, double y, int layer) {
  if (layer == kNotConverted) return;
  const double size = context.settings.pointSize;
  const double radius =
      size == dxf::kNotGiven ? defaultPointRadius(context.area.unit()) : size / 2.0;
  context.commands.layer(layer);
  context.commands.circle(
      {.kind = eagle::CircleKind::Disc, .centre = {x, y}, .onCircle = {x, y + radius}});
}

}  // namespace quillon::classic
