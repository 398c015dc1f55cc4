#include "emit/lines.h"

#include <cmath>

#include "dxf/run_time_error.h"

namespace quillon::emit {
namespace {

void writeWire(ScriptWriter& script, double width, double x1, double y1, double x2, double y2) {
  script.text("Wire ").number(std::fabs(width)).text(" ");
  script.formatPoint(x1, y1).text(" ").formatPoint(x2, y2).text(";").endLine();
}

/// The dashes of one line. Each step is measured by the whole line's length and direction, from a
/// start point that moves along.
class DashedLine {
 public:
  DashedLine(EmitContext& context, double& x1, double& y1, double x2, double y2, int layer,
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
    context_.script.writeLayer(layer_);
    context_.script.count(1);
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
      // there: intended.
      x_ = endX_;
      y_ = endY_;
    }
  }

 private:
  void advance(double dash) {
    const bool drawn = dash > 0.0;
    double step = std::fabs(dash);
    if (drawn && step + travelled_ > length_) step = length_ - travelled_;
    if (!std::isfinite(step)) throw dxf::RunTimeError(dxf::Fault::BadDashLength, {});
    travelled_ += step;
    const double t = step / length_;
    endX_ = x_ + t * dx_;
    endY_ = y_ + t * dy_;
    if (!drawn || step == 0.0) return;
    writeWire(context_.script, width_, x_, y_, endX_, endY_);
    context_.script.finishCommand(1);
  }

  EmitContext& context_;
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

/// Radius of a dot when the drawing gives no point size. The mil value is a tenth of the others'
/// 0.1 mm: intended.
double defaultPointRadius(int unit) {
  switch (unit) {
    case 0:
      return 100.0;
    case -1:  // no selection counts as mm, as it does for the grid
    case 1:
      return 0.1;
    case 2:
      return 0.394;
    default:
      return 0.00394;
  }
}

}  // namespace

void writeLine(EmitContext& context, double& x1, double& y1, double x2, double y2, int layer,
               const DashPattern* dashes, double width) {
  if (layer == kNotConverted) return;
  if (dashes != nullptr) {
    DashedLine line(context, x1, y1, x2, y2, layer, width);
    if (!std::isfinite(line.length())) throw dxf::RunTimeError(dxf::Fault::BadDashLength, {});
    if (line.length() != 0.0) {
      line.write(*dashes);
      return;
    }
  }
  context.script.writeLayer(layer);
  writeWire(context.script, width, x1, y1, x2, y2);
  context.script.finishCommand(2);
}

void writePoint(EmitContext& context, double x, double y, int layer) {
  if (layer == kNotConverted) return;
  const double size = context.settings.pointSize;
  const double radius =
      size == dxf::kNotGiven ? defaultPointRadius(context.script.unit()) : size / 2.0;
  context.script.writeLayer(layer);
  context.script.text("Circle 0.0 ").formatPoint(x, y).text(" ").formatPoint(x, y + radius);
  context.script.text(";").endLine();
  context.script.finishCommand(2);
}

}  // namespace quillon::emit
