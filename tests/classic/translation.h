#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "classic/translator.h"
#include "dxf/entities.h"
#include "dxf/line_reader.h"
#include "dxf/section_walker.h"
#include "dxf/text_source.h"
#include "support/dxf_builder.h"
#include "support/script_capture.h"
#include "support/test_monitor.h"

namespace quillon::testing {

/// Maps every layer to 7, unless a test says otherwise.
class KnownLayers : public rules::LayerNumbers {
 public:
  int layerNumber(const dxf::LayerUse& layer) override {
    const auto found = numbers.find(layer.name);
    return found == numbers.end() ? 7 : found->second;
  }

  std::map<std::string, int, std::less<>> numbers = {{"NOWHERE", 999}};
};

/// A drawing whose tables and blocks have been read.
class Definitions {
 public:
  explicit Definitions(const DxfBuilder& dxf) : source(dxf.text()), lines(source, readMonitor) {
    dxf::readDefinitions(drawing, lines);
  }

  dxf::TextSource source;
  TestMonitor readMonitor;
  dxf::LineReader lines;
  dxf::Drawing drawing;
};

/// The translation of a drawing, entity by entity as it is read.
class Translation {
 public:
  explicit Translation(const DxfBuilder& dxf, const classic::Settings& settings = {},
                       rules::LayerNumbers* otherLayers = nullptr,
                       const geometry::Placement& placement = {})
      : definitions(dxf),
        capture({}, settings),
        translator(capture.context, definitions.drawing,
                   otherLayers != nullptr ? *otherLayers : layers, placement) {}

  /// Translates the ENTITIES section and returns what was written. Call only once.
  std::string run() {
    dxf::readContents(definitions.drawing, definitions.lines, translator, true);
    translator.endOfEntities();
    return capture.take();
  }

  std::uint64_t counted(dxf::EntityKind kind) const {
    return translator.counts()[static_cast<std::size_t>(kind)];
  }

  Definitions definitions;
  ScriptCapture capture;
  KnownLayers layers;
  classic::Translator translator;
};

/// The script of a drawing's ENTITIES section.
inline std::string translate(const DxfBuilder& dxf, const geometry::Placement& placement = {},
                             const classic::Settings& settings = {}) {
  return Translation(dxf, settings, nullptr, placement).run();
}

/// Groups of an entity, to be extended by a test.
using GroupList = std::vector<std::pair<int, std::string_view>>;

inline GroupList joined(GroupList groups, const GroupList& more) {
  groups.insert(groups.end(), more.begin(), more.end());
  return groups;
}

/// A drawing with one entity on layer 0.
inline DxfBuilder drawingOf(std::string_view name, const GroupList& groups) {
  DxfBuilder dxf;
  dxf.entity(name, joined({{8, "0"}}, groups));
  return dxf;
}

}  // namespace quillon::testing
