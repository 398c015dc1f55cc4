#include "convert/layer_table.h"

#include "convert/layer_file.h"
#include "dxf/number_text.h"
#include "dxf/run_time_error.h"

namespace quillon::convert {

void LayerTable::add(std::string_view name, std::string_view layer) {
  layers_.try_emplace(dxf::upperCase(name, dxf::Encoding::Utf8), layer);
  ++size_;
}

const std::string* LayerTable::find(std::string_view upperName) const {
  const auto found = layers_.find(upperName);
  return found == layers_.end() ? nullptr : &found->second;
}

LayerTable readLayerFile(const std::string& path) {
  LayerTable table;
  for (const LayerRow& row : readLayerRows(path)) table.add(row.name, row.layer);
  return table;
}

std::string_view LayerAssignment::lookupLayer(std::string_view dxfLayerName) const {
  const std::string utf8 = dxf::toUtf8(dxfLayerName, encoding_);
  const std::string* const assigned = table_.find(dxf::upperCase(utf8, dxf::Encoding::Utf8));
  return assigned == nullptr ? std::string_view(defaultLayer_) : *assigned;
}

int LayerAssignment::layerNumber(const dxf::LayerUse& layer) {
  if (numbers_.size() <= layer.number) numbers_.resize(layer.number + 1);
  std::optional<int>& known = numbers_[layer.number];
  if (!known) {
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
