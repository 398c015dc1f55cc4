#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "exact/held_layer.h"
#include "exact/options.h"
#include "exact/outlines.h"
#include "exact/shapes.h"
#include "geometry/affine.h"
#include "geometry/box.h"
#include "rules/cancel_poll.h"
#include "rules/losses.h"

namespace quillon::exact {

/// Holds shapes until all of them are known, layer by layer: joins ends, chains what follows each
/// other, leaves out what is drawn twice, makes holes of circles, and cuts endless lines, as far as
/// the options want it. Where they want nothing that needs all shapes, shapes go on at once.
class Cleaning final : public ShapeSink {
 public:
  /// Held shapes count as steps of the poll, which also ends the cleaning early.
  Cleaning(const Options& options, LossList& losses, ShapeSink& next,
           rules::CancelPoll* poll = nullptr)
      : options_(options), measures_(options), losses_(losses), next_(next), poll_(poll) {}

  void take(const Origin& origin, Chain&& chain) override;
  void takeSegment(const Origin& origin, const Segment& segment) override;
  void take(const Origin& origin, Area&& area) override;
  void take(const Origin& origin, TextLine&& text) override;
  void take(const Origin& origin, const Dot& dot) override;
  void take(const Origin& origin, const Hole& hole) override;
  void take(const Origin& origin, const EndlessLine& line) override {
    endless_.push_back({origin, line});
  }

  /// Nothing is held.
  bool empty() const { return order_.empty(); }
  bool hasTexts() const;
  /// Around everything taken so far but endless lines; units of the script.
  geometry::Box bounds() const;

  /// Hands on what is held, layer after layer in the order of first use, each layer in the order of
  /// the drawing. Past the limit of steps, shapes are handed on as they are; after a
  /// cancel, or when the script is full, no more of them.
  void finish();
  const OutlineReport& report() const { return report_; }

  /// Something else is drawn within this box.
  void surround(const geometry::Box& box) { handedOn_.add(box); }
  /// Ends endless lines a little outside of everything else; also done by finish().
  void cutEndless();
  /// What was found out about shapes that are cleaned on their own, and are seen where `place` maps
  /// them.
  void addReport(const OutlineReport& report, const geometry::Affine& place);

 private:
  using HeldEndless = std::pair<Origin, EndlessLine>;

  HeldLayer& layerOf(int number);
  template <typename Shape>
  void hold(const Origin& origin, Shape&& shape);
  /// What is seen of an endless line.
  void holdPart(const Origin& origin, const EndlessLine& line, Point from, Point to);
  void handOn(HeldLayer& layer);
  geometry::Box letters() const;  ///< around those of all texts

  const Options& options_;
  Measures measures_;
  LossList& losses_;
  ShapeSink& next_;
  rules::CancelPoll* poll_;
  Looks looks_;
  std::map<int, HeldLayer> layers_;
  std::vector<HeldLayer*> order_;  ///< of first use
  HeldLayer* lastLayer_ = nullptr;
  std::vector<HeldEndless> endless_;
  geometry::Box handedOn_;  ///< around what is not held any more
  geometry::Box lettersHandedOn_;
  OutlineReport report_;
};

}  // namespace quillon::exact
