#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <variant>
#include <vector>

#include "exact/losses.h"
#include "exact/options.h"
#include "exact/outlines.h"
#include "exact/shapes.h"
#include "geometry/box.h"

namespace quillon::exact {

/// Holds shapes until all of them are known, layer by layer: joins ends, chains what follows each
/// other, leaves out what is drawn twice, makes holes of circles, and cuts endless lines, as far as
/// the options want it. Where they want nothing that needs all shapes, shapes go on at once.
class Cleaning final : public ShapeSink {
 public:
  Cleaning(const Options& options, LossList& losses, ShapeSink& next)
      : options_(options), measures_(options), losses_(losses), next_(next) {}

  void take(const Origin& origin, Chain&& chain) override { hold({origin, std::move(chain)}); }
  void take(const Origin& origin, Area&& area) override { hold({origin, std::move(area)}); }
  void take(const Origin& origin, TextLine&& text) override { hold({origin, std::move(text)}); }
  void take(const Origin& origin, const Dot& dot) override { hold({origin, dot}); }
  void take(const Origin& origin, const Hole& hole) override { hold({origin, hole}); }
  void take(const Origin& origin, const EndlessLine& line) override {
    endless_.push_back({origin, line});
  }

  /// Around everything taken so far but endless lines; units of the script.
  geometry::Box bounds() const;

  /// Hands on what is held, layer after layer in the order of first use, each layer in the order of
  /// the drawing.
  void finish();
  const OutlineReport& report() const { return report_; }

 private:
  using HeldEndless = std::pair<Origin, EndlessLine>;

  void hold(HeldShape&& held);
  void cutEndless();
  void handOn(HeldShape& held);

  const Options& options_;
  Measures measures_;
  LossList& losses_;
  ShapeSink& next_;
  std::vector<int> order_;
  std::map<int, std::vector<HeldShape>> layers_;
  std::vector<HeldEndless> endless_;
  geometry::Box handedOn_;  ///< around what is not held any more
  OutlineReport report_;
};

}  // namespace quillon::exact
