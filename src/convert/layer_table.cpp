#include "convert/layer_table.h"

#include "base/layer_number.h"
#include "base/number_text.h"
#include "base/run_time_error.h"

namespace quillon::convert {

void LayerTable::add(std::string_view name, std::string_view layer, bool written, bool areas) {
  layers_.try_emplace(base::upperCase(name, base::Encoding::Utf8),
                      Record{std::string(layer), written, areas});
  ++size_;
}

const LayerTable::Record* LayerTable::record(std::string_view upperName) const {
  const auto found = layers_.find(upperName);
  return found == layers_.end() ? nullptr : &found->second;
}

const std::string* LayerTable::find(std::string_view upperName) const {
  const Record* const found = record(upperName);
  return found == nullptr ? nullptr : &found->layer;
}

bool LayerTable::isWritten(std::string_view upperName) const {
  const Record* const found = record(upperName);
  return found == nullptr || found->written;
}

bool LayerTable::hasAreas(std::string_view upperName) const {
  const Record* const found = record(upperName);
  return found != nullptr && found->areas;
}

LayerTable layerTableOf(const std::vector<LayerRow>& rows) {
  LayerTable table;
  for (const LayerRow& row : rows) {
    table.add(row.name, row.layer, !isForeignLayer(row), row.areas);
  }
  return table;
}

std::string LayerAssignment::upperName(std::string_view dxfLayerName) const {
  return base::upperCase(base::toUtf8(dxfLayerName, encoding_), base::Encoding::Utf8);
}

std::string_view LayerAssignment::lookupLayer(std::string_view dxfLayerName) const {
  const std::string* const assigned = table_.find(upperName(dxfLayerName));
  return assigned == nullptr ? std::string_view(defaultLayer_) : *assigned;
}

int LayerAssignment::layerNumber(const dxf::LayerUse& layer) {
  if (numbers_.size() <= layer.number) numbers_.resize(layer.number + 1);
  std::optional<int>& known = numbers_[layer.number];
  if (!known) known = findNumber(layer.name);
  return *known;
}

bool LayerAssignment::hasAreas(const dxf::LayerUse& layer) {
  return table_.hasAreas(upperName(layer.name));
}

int LayerAssignment::findNumber(std::string_view dxfLayerName) const {
  const std::string name = upperName(dxfLayerName);
  const std::string* const assigned = table_.find(name);
  if (assigned == nullptr && !base::startsWithNumber(defaultLayer_)) {
    throw NoStandardLayer(base::toUtf8(dxfLayerName, encoding_));
  }
  if (!table_.isWritten(name)) return base::kNotConverted;
  const std::string_view text = assigned == nullptr ? std::string_view(defaultLayer_) : *assigned;
  bool fits = false;
  const int number = base::roundedInteger16(base::numberValue(text), fits);
  if (!fits) throw base::RunTimeError(base::Fault::BadLayerNumber, text);
  return number;
}

}  // namespace quillon::convert
