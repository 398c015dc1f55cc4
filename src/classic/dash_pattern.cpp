#include "classic/dash_pattern.h"

#include <string>

#include "base/encoding.h"
#include "base/number_text.h"

namespace quillon::classic {
namespace {

/// Removes the next dash from a list; false at its end.
bool takeDash(std::string_view& list, double& dash) {
  while (!list.empty()) {
    const std::size_t stop = list.find(';');
    const std::string_view item = list.substr(0, stop);
    list.remove_prefix(stop == std::string_view::npos ? list.size() : stop + 1);
    if (item.empty()) continue;
    dash = base::numberValue(item);
    return true;
  }
  return false;
}

}  // namespace

DashPattern::DashPattern(std::string_view list) : rest_(list) {
  double dash = 0.0;
  while (first_.size() < kMostKept && takeDash(rest_, dash)) first_.push_back(dash);
}

const DashPattern* DashPatterns::find(std::string_view lineType) {
  if (lineType.empty()) return nullptr;
  if (lineType == lastName_) return last_;
  lastName_ = lineType;
  last_ = patternOf(lineType);
  return last_;
}

const DashPattern* DashPatterns::patternOf(std::string_view lineType) {
  const std::string name = base::upperCase(lineType, drawing_.encoding);
  const dxf::LineTypeRec* const record = drawing_.findLineType(name);
  if (record == nullptr || base::numberValue(record->totalLength) == 0.0) return nullptr;
  patterns_.resize(drawing_.lineTypes.size());
  std::unique_ptr<const DashPattern>& pattern = patterns_[record->number];
  if (pattern == nullptr) pattern = std::make_unique<const DashPattern>(record->dashes);
  return pattern.get();
}

bool DashWalk::next(double travelled, double& dash) {
  const std::vector<double>& first = pattern_.first_;
  if (index_ > 0) {
    if (index_ < first.size()) {
      dash = first[index_++];
      return true;
    }
    if (takeDash(rest_, dash)) return true;
  }
  if (first.empty() || (started_ && !(travelled > passStart_))) return false;
  started_ = true;
  passStart_ = travelled;
  rest_ = pattern_.rest_;
  index_ = 1;
  dash = first[0];
  return true;
}

}  // namespace quillon::classic
