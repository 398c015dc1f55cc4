#pragma once

#include "eagle/commands.h"
#include "exact/cleaning.h"
#include "exact/command_writer.h"
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
        translator_(options_, drawing, layers, cleaning_, losses_, poll, top) {}

  void beginScript() override { writer_.begin(); }
  void takeEntity(dxf::DxfEntity& entity) override { translator_.takeEntity(entity); }
  /// Everything that waited for the last entity is written, unless the drawing has to be read
  /// again for its paper space.
  void endOfEntities() override;
  /// True when the model space is empty, but not the paper space, which is then to be drawn: the
  /// entities have to come once more.
  bool wantsPaper() const { return options_.space == Space::Model && isOnlyPaper_ && !drewPaper_; }
  bool drewPaper() const { return drewPaper_; }

  // Blocks are always drawn in place.
  void setBlockParts(rules::BlockParts*) override {}
  void translateBlock(std::size_t, const geometry::Placement&) override {}

  const rules::EntityCounts& counts() const override { return translator_.counts(); }
  const rules::EntityCounts& leftOut() const override { return translator_.leftOut(); }
  const char* currentPosition() const override { return translator_.currentPosition(); }

  const Translator::NamedCounts& otherCounts() const { return translator_.otherCounts(); }
  const Translator::NamedCounts& otherLeftOut() const { return translator_.otherLeftOut(); }

  const LossList& losses() const { return losses_; }
  /// Whether wires or polygons got the name of a signal.
  bool namedSignals() const { return writer_.namedSignals(); }
  const OutlineReport& outlines() const { return cleaning_.report(); }

 private:
  const Options options_;
  LossList losses_;
  CommandWriter writer_;
  Cleaning cleaning_;
  Translator translator_;
  bool isOnlyPaper_ = false;
  bool drewPaper_ = false;
};

/// Around everything that the exact rules would draw, in units of the drawing and without cleaning.
class Survey final : public dxf::EntitySink {
 public:
  Survey(dxf::Drawing& drawing, rules::LayerNumbers& layers, rules::CancelPoll& poll);

  void takeEntity(dxf::DxfEntity& entity) override { translator_.takeEntity(entity); }
  void endOfEntities() override { translator_.endOfEntities(); }
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
