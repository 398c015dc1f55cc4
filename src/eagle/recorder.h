#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>

#include "eagle/commands.h"
#include "eagle/drawing_area.h"
#include "eagle/recording.h"

namespace quillon::eagle {

/// Records what is drawn as a compact list, for pictures. Commands that draw nothing are ignored.
class Recorder final : public Commands {
 public:
  explicit Recorder(const Coordinates& coordinates);

  const Recording& recording() const { return recording_; }
  Recording take() { return std::move(recording_); }

  void layer(int number) override {
    layerNumber_ = number;
    layer_ = nullptr;
  }
  void defineLayer(int, std::string_view) override {}
  void wire(const Wire& wire) override;
  void arc(const Arc& arc) override;
  void circle(const Circle& circle) override;
  void area(const Area& area) override;
  void polyline(const Polyline& polyline) override;
  void openPolygon(const PolygonStart& start) override;
  void addToPolygon(Point corner) override;
  void closePolygon() override;
  void text(const Text& text) override;
  void label(const Label& label) override;
  void part(const Part& part) override;
  void hole(const Hole& hole) override;
  void change(Property property, double value) override;
  void change(Property property, std::string_view word) override;
  void edit(std::string_view name, std::string_view extension) override;
  void beginPart() override { inPart_ = true; }
  void comment(std::string_view) override {}
  void command(std::string_view) override {}

 private:
  RecordedSheet& sheet() { return *sheet_; }
  /// The record of the current layer.
  RecordedLayer& onLayer();
  Point placed(Point point) const { return inPart_ ? point : area_.offset(point.x, point.y); }
  void addCorner(Point corner, double curve);
  void addWire(Point from, Point to, double curve, double width);

  DrawingArea area_;
  Recording recording_;
  std::map<std::string, RecordedSheet*, std::less<>> sheets_;
  RecordedSheet* sheet_;
  bool inPart_ = false;
  int layerNumber_ = 0;
  RecordedLayer* layer_ = nullptr;   ///< null until something is drawn on it
  std::optional<double> lastWidth_;  ///< EAGLE keeps using the last width; none: that of its user
  double size_ = 0.0;
  std::string align_;
};

/// Degrees of the arc drawn by a three-point command; positive is counter-clockwise.
double curveOf(const Arc& arc);
/// Where that arc ends: the command's last point only gives a direction.
Point endOf(const Arc& arc);

}  // namespace quillon::eagle
