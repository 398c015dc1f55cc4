#include "convert/layer_table.h"

#include "dxf/number_text.h"
#include "dxf/run_time_error.h"

namespace quillon::convert {

void LayerTable::add(std::string_view name, std::string_view layer) {
  layers_.try_emplace(dxf::upperCase(name, dxf::Encoding::Utf8), layer);
  ++size_;
}

const std::string* LayerTable::find(std::string_view upperName) const {
  const auto found = layers_.find(std::string(upperName));
  return found == layers_.end() ? nullptr : &found->second;
}

LayerTable layerTableOf(const std::vector<LayerRow>& rows) {
  LayerTable table;
  for (const LayerRow& row : rows) table.add(row.name, row.layer);
  return table;
}

LayerTable readLayerFile(const std::string& path) { return layerTableOf(readLayerRows(path)); }

const std::string* LayerAssignment::assigned(std::string_view dxfLayerName) const {
  const std::string utf8 = dxf::toUtf8(dxfLayerName, encoding_);
  return table_.find(dxf::upperCase(utf8, dxf::Encoding::Utf8));
}

std::string_view LayerAssignment::lookupLayer(std::string_view dxfLayerName) const {
  const std::string* const layer = assigned(dxfLayerName);
  return layer == nullptr ? std::string_view(defaultLayer_) : *layer;
}

int LayerAssignment::layerNumber(const dxf::LayerUse& layer) {
  if (numbers_.size() <= layer.number) numbers_.resize(layer.number + 1);
  std::optional<int>& known = numbers_[layer.number];
  if (!known) {
    if (assigned(layer.name) == nullptr && !dxf::startsWithNumber(defaultLayer_)) {
      throw NoStandardLayer(dxf::toUtf8(layer.name, encoding_));
    }
    const std::string_view text = lookupLayer(layer.name);
    bool fits = false;
    known = dxf::roundedInteger16(dxf::numberValue(text), fits);
    if (!fits) {
      known.reset();
      throw dxf::RunTimeError(dxf::Fault::BadLayerNumber, text);
    }
  }
  return *known;
}

}  // namespace quillon::convert
