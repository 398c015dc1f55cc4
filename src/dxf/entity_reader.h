#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "base/text_hash.h"
#include "dxf/drawing.h"
#include "dxf/group_cursor.h"

namespace quillon::dxf {

/// Brings the values of entities into their final form. Names are cached, so that each is
/// upper-cased and looked up once.
class EntityReader {
 public:
  explicit EntityReader(Drawing& drawing) : drawing_(drawing) {}

  /// Completes an entity just read: layer, line type, and what its kind requires.
  void complete(DxfEntity& entity);

  /// The groups of an entity whose kind has a side record.
  GroupReplay groups(const DxfEntity& entity) const;

  /// Looks up an entity's layer in the layer table.
  const LayerUse& layerLineType(std::string_view layerName);

  /// The name in upper case: a cached copy, or the name itself if it already is.
  std::string_view upperName(std::string_view name);

 private:
  void finishKind(DxfEntity& entity);

  Drawing& drawing_;
  std::unordered_map<std::string_view, LayerUse, base::TextHash> layers_;
  std::unordered_map<std::string_view, std::string_view, base::TextHash> upperNames_;
  /// The most recent layers, indexed by a few bits of their names; drawings use few layers at a
  /// time.
  struct RecentLayer {
    std::string_view name;
    const LayerUse* use = nullptr;
  };
  std::array<RecentLayer, 64> recentLayers_;
};

}  // namespace quillon::dxf
