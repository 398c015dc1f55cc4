#include "emit/dash_pattern.h"

#include <string>

#include "dxf/encoding.h"
#include "dxf/number_text.h"

namespace quillon::emit {
namespace {

DashPattern parseDashList(std::string_view list) {
  DashPattern pattern;
  while (!list.empty()) {
    const std::size_t stop = list.find(';');
    const std::string_view item = list.substr(0, stop);
    if (!item.empty()) pattern.push_back(dxf::numberValue(item));
    if (stop == std::string_view::npos) break;
    list.remove_prefix(stop + 1);
  }
  return pattern;
}

}  // namespace

const DashPattern* DashPatterns::find(std::string_view lineType) {
  if (lineType.empty()) return nullptr;
  const auto known = known_.find(lineType);
  if (known != known_.end()) return known->second;
  const DashPattern* const pattern = load(lineType);
  known_.emplace(drawing_.arena.keep(lineType), pattern);
  return pattern;
}

const DashPattern* DashPatterns::load(std::string_view lineType) {
  constexpr std::size_t kTotalLength = 2;
  constexpr std::size_t kDashList = 3;
  const std::string name = dxf::upperCase(lineType, drawing_.encoding);
  dxf::LineTypeRec* const record = drawing_.findLineType(name);
  if (record == nullptr) return nullptr;
  record->used = true;
  if (dxf::numberValue(record->values[kTotalLength]) == 0.0) return nullptr;
  return &patterns_.emplace_back(parseDashList(record->values[kDashList]));
}

bool DashWalk::next(double travelled, double& dash) {
  if (index_ == pattern_.size()) index_ = 0;
  if (index_ == 0) {
    if (pattern_.empty() || (started_ && !(travelled > passStart_))) return false;
    started_ = true;
    passStart_ = travelled;
  }
  dash = pattern_[index_++];
  return true;
}

}  // namespace quillon::emit
