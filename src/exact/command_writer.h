#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "eagle/commands.h"
#include "exact/options.h"
#include "exact/shapes.h"
#include "geometry/arc.h"
#include "geometry/box.h"

namespace quillon::exact {

/// Writes shapes as commands, each setting only when it differs from the last one.
class CommandWriter final : public ShapeSink {
 public:
  CommandWriter(const Options& options, eagle::Commands& commands)
      : options_(options), commands_(commands) {}

  /// What the commands of a drawing or part start and end with. EAGLE forgets all settings when
  /// another drawing is opened.
  void begin();
  void end();
  /// The same for a library part, which keeps its coordinates and has no signals.
  void beginPart();
  /// Everything that follows is moved by this, in units of the script.
  void moveBy(Point by) { offset_ = by; }
  Point movedBy() const { return offset_; }

  /// Places a library part.
  void place(eagle::Part part);

  void take(const Origin& origin, Chain&& chain) override;
  void takeSegment(const Origin& origin, const Segment& segment) override;
  void take(const Origin& origin, Area&& area) override;
  void take(const Origin& origin, TextLine&& text) override;
  void take(const Origin& origin, const Dot& dot) override;
  void take(const Origin& origin, const Hole& hole) override;
  /// Endless lines have been cut before.
  void take(const Origin&, const EndlessLine&) override {}

  /// Whether names of signals were written.
  bool namedSignals() const { return namedSignals_; }
  /// Around all curves and points that were written, where they are in the script; without the
  /// widths of lines and the letters of texts.
  const geometry::Box& bounds() const { return bounds_; }

 private:
  Point placed(Point p) const { return {p.x + offset_.x, p.y + offset_.y}; }
  void setAll();
  void setLayer(const Origin& origin) {
    if (layer_ != origin.layer) changeLayer(origin);
  }
  void setStyle(Style style) {
    if (style_ != style) changeStyle(style);
  }
  void changeLayer(const Origin& origin);
  void changeStyle(Style style);
  void setSize(double height);
  void setAlign(Columns columns, Rows rows);
  std::string_view signalOn(int layer);
  void putCircle(const Chain& chain);
  void collect(const Path& path);
  void extendByArc(const geometry::Arc& arc);
  void addDisc(Point centre, double diameter);
  void extend(const geometry::Box& to);

  const Options& options_;
  eagle::Commands& commands_;
  Point offset_{};
  bool inPart_ = false;
  std::optional<int> layer_;
  std::optional<Style> style_;
  std::optional<double> size_;
  std::optional<std::pair<Columns, Rows>> align_;
  std::set<int> definedLayers_;
  std::vector<eagle::Corner> corners_;
  geometry::Box bounds_;
  bool namedSignals_ = false;
};

}  // namespace quillon::exact
