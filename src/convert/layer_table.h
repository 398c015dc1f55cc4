#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dxf/drawing.h"
#include "rules/translation.h"

namespace quillon::convert {

/// The assignments of a layer assignment file: DXF layer names to EAGLE layers.
class LayerTable {
 public:
  /// Adds a record; the first one of a name decides. The name is UTF-8, `layer` a decimal number.
  void add(std::string_view name, std::string_view layer);
  /// The EAGLE layer of an upper-cased UTF-8 name, or null.
  const std::string* find(std::string_view upperName) const;
  std::size_t size() const { return size_; }

 private:
  std::unordered_map<std::string, std::string> layers_;
  std::size_t size_ = 0;
};

/// The table of a layer assignment file. An empty or missing path gives an empty table.
LayerTable readLayerFile(const std::string& path);

/// Finds the EAGLE layer of a drawing's layers, once for each.
class LayerAssignment : public rules::LayerNumbers {
 public:
  LayerAssignment(const LayerTable& table, std::string_view defaultLayer, dxf::Encoding encoding)
      : table_(table), defaultLayer_(defaultLayer), encoding_(encoding) {}

  /// The EAGLE layer of a DXF layer as text; the default layer for one that is not assigned.
  std::string_view lookupLayer(std::string_view dxfLayerName) const;

  /// The leading number of that text, rounded half to even. Throws RunTimeError (BadLayerNumber)
  /// when it does not fit in 16 bits.
  int layerNumber(const dxf::LayerUse& layer) override;

 private:
  const LayerTable& table_;
  std::string defaultLayer_;
  dxf::Encoding encoding_;
  std::vector<std::optional<int>> numbers_;
};

}  // namespace quillon::convert
