#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "dxf/drawing.h"

namespace quillon::emit {

/// The dashes of a line type: positive drawn, negative gaps, 0 dots; before scaling.
using DashPattern = std::vector<double>;

/// Finds the dash pattern of a line type by its name, once per name.
class DashPatterns {
 public:
  explicit DashPatterns(dxf::Drawing& drawing) : drawing_(drawing) {}

  /// The pattern, or null for a line type that is not in the table or has a total length of 0:
  /// such lines are continuous.
  const DashPattern* find(std::string_view lineType);

 private:
  const DashPattern* load(std::string_view lineType);

  dxf::Drawing& drawing_;
  std::unordered_map<std::string_view, const DashPattern*> known_;
  std::deque<DashPattern> patterns_;
};

/// Walks a pattern along a length: gives its dashes in order, over and over, until the length is
/// used up or a whole pass over the pattern did not get on.
class DashWalk {
 public:
  explicit DashWalk(const DashPattern& pattern) : pattern_(pattern) {}

  /// The next dash. `travelled` is how far the walk has come; false when it stands still.
  bool next(double travelled, double& dash);

 private:
  const DashPattern& pattern_;
  std::size_t index_ = 0;
  bool started_ = false;
  double passStart_ = 0.0;
};

}  // namespace quillon::emit
