#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dxf/line_reader.h"
#include "dxf/section_walker.h"
#include "dxf/text_source.h"
#include "exact/translator.h"
#include "shape_log.h"
#include "support/dxf_builder.h"
#include "support/test_monitor.h"

namespace quillon::testing {

/// Maps every layer to 7, unless a test says otherwise.
class LayersOfTest : public rules::LayerNumbers {
 public:
  int layerNumber(const dxf::LayerUse& layer) override {
    const auto found = numbers.find(layer.name);
    return found == numbers.end() ? 7 : found->second;
  }

  bool hasAreas(const dxf::LayerUse& layer) override { return areas.contains(layer.name); }

  std::set<std::string, std::less<>> areas;
  std::map<std::string, int, std::less<>> numbers = {{"NOWHERE", 999}};
};

/// A drawing under the exact rules: its shapes before they are cleaned, and what was lost. Units of
/// the script are millimetres, as are those of the drawing.
class ExactDrawing {
 public:
  static constexpr std::uint64_t kAnySteps = rules::WorkLimits::kNone;

  explicit ExactDrawing(const DxfBuilder& dxf, const exact::Options& options = {},
                        LayersOfTest layers = {}, std::uint64_t mostSteps = kAnySteps)
      : ExactDrawing(dxf.text(), options, std::move(layers), mostSteps) {}
  explicit ExactDrawing(const std::string& dxf, const exact::Options& options = {},
                        LayersOfTest layers = {}, std::uint64_t mostSteps = kAnySteps) {
    dxf::TextSource source(dxf);
    TestMonitor monitor;
    dxf::LineReader reader(source, monitor);
    drawing_.everyKind = true;
    dxf::readDefinitions(drawing_, reader);
    rules::CancelPoll poll(monitor);
    poll.setLimit(mostSteps);
    exact::Translator translator(options, drawing_, layers, log_, losses_, poll,
                                 geometry::Affine::scaling(options.factor, options.factor));
    dxf::readContents(drawing_, reader, translator, true);
    translator.endOfEntities();
    translator.finish();
    steps_ = poll.steps();
  }

  /// A line for each shape; see ShapeLog.
  const std::string& shapes() const { return log_.text(); }
  /// A line for each loss: "unknown-kind BODY 2 line 13".
  std::string losses() const {
    std::string text;
    for (const rules::Loss& loss : losses_.all()) {
      text += std::string(rules::wordOf(loss.rule)) + " " + std::string(loss.kind) + " " +
              (loss.name.empty() ? "" : std::string(loss.name) + " ") + std::to_string(loss.count) +
              " line " + std::to_string(loss.line) + "\n";
    }
    return text;
  }
  std::uint64_t steps() const { return steps_; }
  const exact::LossList& lossList() const { return losses_; }

 private:
  dxf::Drawing drawing_;
  ShapeLog log_;
  exact::LossList losses_;
  std::uint64_t steps_ = 0;
};

/// Groups of an entity, to be extended by a test.
using GroupPairs = std::vector<std::pair<int, std::string_view>>;

/// A drawing with one entity on layer 0.
inline DxfBuilder oneEntity(std::string_view name, const GroupPairs& groups) {
  GroupPairs all = {{8, "0"}};
  all.insert(all.end(), groups.begin(), groups.end());
  DxfBuilder dxf;
  dxf.entity(name, all);
  return dxf;
}

/// The shapes of a drawing with one entity.
inline std::string shapesOf(std::string_view name, const GroupPairs& groups,
                            const exact::Options& options = {}) {
  return ExactDrawing(oneEntity(name, groups), options).shapes();
}

}  // namespace quillon::testing
