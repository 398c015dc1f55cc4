#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text_hash.h"
#include "convert/layer_file.h"
#include "dxf/drawing.h"
#include "rules/translation.h"

namespace quillon::convert {

/// The assignments of a layer assignment file: DXF layer names to EAGLE layers.
class LayerTable {
 public:
  /// Adds a record; the first one of a name counts. The name is UTF-8, `layer` a decimal number.
  /// What is on a layer that is not `written` is skipped; on one with `areas`, closed polylines
  /// become areas by the exact rules.
  void add(std::string_view name, std::string_view layer, bool written = true, bool areas = false);
  /// The EAGLE layer of an upper-cased UTF-8 name, or null.
  const std::string* find(std::string_view upperName) const;
  bool isWritten(std::string_view upperName) const;
  bool hasAreas(std::string_view upperName) const;
  std::size_t size() const { return size_; }

 private:
  struct Record {
    std::string layer;
    bool written;
    bool areas;
  };
  const Record* record(std::string_view upperName) const;

  std::unordered_map<std::string, Record, base::TextHash, std::equal_to<>> layers_;
  std::size_t size_ = 0;
};

/// A table from rows; numbers that are not EAGLE layers are not written.
LayerTable layerTableOf(const std::vector<LayerRow>& rows);

/// A layer has no assignment, and the standard layer has no number.
class NoStandardLayer : public std::runtime_error {
 public:
  /// `layer` is the name of the DXF layer, UTF-8.
  explicit NoStandardLayer(std::string layer)
      : std::runtime_error("no standard layer"), layer_(std::move(layer)) {}
  const std::string& layer() const { return layer_; }

 private:
  std::string layer_;
};

/// Finds the EAGLE layer of each of a drawing's layers, looking each up once.
class LayerAssignment : public rules::LayerNumbers {
 public:
  LayerAssignment(const LayerTable& table, std::string_view defaultLayer, base::Encoding encoding)
      : table_(table), defaultLayer_(defaultLayer), encoding_(encoding) {}

  /// The EAGLE layer of a DXF layer as text; the default layer when it is not assigned.
  std::string_view lookupLayer(std::string_view dxfLayerName) const;

  /// The leading number of that text, rounded half to even; 999 when it is not written. Throws
  /// RunTimeError (BadLayerNumber) when it does not fit in 16 bits, and NoStandardLayer when the
  /// default layer has no number.
  int layerNumber(const dxf::LayerUse& layer) override;
  bool hasAreas(const dxf::LayerUse& layer) override;

 private:
  std::string upperName(std::string_view dxfLayerName) const;
  int findNumber(std::string_view dxfLayerName) const;

  const LayerTable& table_;
  std::string defaultLayer_;
  base::Encoding encoding_;
  std::vector<std::optional<int>> numbers_;
};

}  // namespace quillon::convert
