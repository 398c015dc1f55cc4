#pragma once

#include <optional>
#include <utility>

#include "eagle/commands.h"
#include "exact/cleaning.h"
#include "exact/command_writer.h"
#include "exact/parts.h"
#include "exact/translator.h"
#include "rules/translation.h"

namespace quillon::exact {

/// The exact rules as a whole: from entities to commands.
class RuleSet final : public rules::Translation {
 public:
  /// Entities are moved to `top` first. The drawing has to be read with everyKind.
  RuleSet(const Options& options, eagle::Commands& commands, dxf::Drawing& drawing,
          rules::LayerNumbers& layers, rules::CancelPoll& poll, const Affine& top)
      : options_(options),
        writer_(options_, commands),
        cleaning_(options_, losses_, writer_, &poll),
        translator_(options_, drawing, layers, cleaning_, losses_, poll, top),
        drawing_(drawing),
        poll_(poll) {}

  /// Before the entities, with options that want parts: where these are written. `all`: blocks that
  /// are not inserted become parts too.
  void setPartFrame(PartFrame& frame, bool all);

  /// With parts, what is written first is one of these.
  void beginScript() override {
    if (!options_.parts) writer_.begin();
  }
  void takeEntity(dxf::DxfEntity& entity) override { translator_.takeEntity(entity); }
  /// Everything that waited for the last entity is written, unless the drawing has to be read
  /// again for its paper space, or something waits for its last section.
  void endOfEntities() override;
  dxf::ObjectSink* objectSink() override { return translator_.objectSink(); }
  /// The same after all sections, and for a drawing without one of entities, whose blocks may
  /// become parts all the same; nothing if endOfEntities() has done it.
  void finish();
  /// True when the model space is empty, but not the paper space, which is then to be drawn: the
  /// entities have to come once more.
  bool wantsPaper() const { return options_.space == Space::Model && isOnlyPaper_ && !drewPaper_; }
  bool drewPaper() const { return drewPaper_; }

  // Parts by these rules go to the frame of setPartFrame.
  void setBlockParts(rules::BlockParts*) override {}
  void translateBlock(std::size_t, const geometry::Placement&) override {}

  const rules::EntityCounts& counts() const override { return translator_.counts(); }
  const rules::EntityCounts& leftOut() const override { return translator_.leftOut(); }
  const char* currentPosition() const override { return translator_.currentPosition(); }

  const Translator::NamedCounts& otherCounts() const { return translator_.otherCounts(); }
  const Translator::NamedCounts& otherLeftOut() const { return translator_.otherLeftOut(); }

  LossList takeLosses() override { return std::move(losses_); }
  /// By how much everything is moved in the script, the job's offsets aside.
  Point movedBy() const { return writer_.movedBy(); }
  /// Around everything that was written, in the same coordinates.
  const geometry::Box& bounds() const { return writer_.bounds(); }
  /// Whether wires or polygons got the name of a signal.
  bool namedSignals() const { return writer_.namedSignals(); }
  const OutlineReport& outlines() const { return cleaning_.report(); }

 private:
  const Options options_;
  LossList losses_;
  CommandWriter writer_;
  Cleaning cleaning_;
  Translator translator_;
  dxf::Drawing& drawing_;
  rules::CancelPoll& poll_;
  std::optional<Parts> parts_;
  bool allParts_ = false;
  bool isFinished_ = false;
  bool isOnlyPaper_ = false;
  bool drewPaper_ = false;
};

/// Around everything that the exact rules would draw, in units of the drawing and without cleaning.
class Survey final : public dxf::EntitySink {
 public:
  /// Of the options, those count by which things are shown or not.
  Survey(const Options& options, dxf::Drawing& drawing, rules::LayerNumbers& layers,
         rules::CancelPoll& poll);

  void takeEntity(dxf::DxfEntity& entity) override { translator_.takeEntity(entity); }
  void endOfEntities() override {
    translator_.endOfEntities();
    translator_.drawLayouts();
  }
  const geometry::Box& bounds() const { return bounds_.box; }

 private:
  struct Bounds final : ShapeSink {
    geometry::Box box;
    void take(const Origin&, Chain&& chain) override;
    void take(const Origin&, Area&& area) override;
    void take(const Origin&, TextLine&& text) override { box.add(text.at); }
    void take(const Origin&, const Dot& dot) override { box.add(dot.centre); }
    void take(const Origin&, const Hole& hole) override { box.add(hole.centre); }
    void take(const Origin&, const EndlessLine&) override {}
  };

  const Options options_;
  Bounds bounds_;
  LossList losses_;
  Translator translator_;
};

}  // namespace quillon::exact
