#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dxf/drawing.h"

namespace quillon::classic {

/// Dashes of a line type: positive drawn, negative gaps, 0 dots; before scaling.
///
/// The first ones are kept as numbers. The rest of a long list, which a hostile drawing could share
/// among many line types, stays text and is parsed while walking.
class DashPattern {
 public:
  DashPattern() = default;
  DashPattern(std::initializer_list<double> dashes) : first_(dashes) {}
  /// `list` as in the line type table; it must outlive the pattern.
  explicit DashPattern(std::string_view list);

  friend bool operator==(const DashPattern&, const DashPattern&) = default;

 private:
  friend class DashWalk;
  static constexpr std::size_t kMostKept = 64;

  std::vector<double> first_;
  std::string_view rest_;
};

/// Finds the dash pattern of a line type by name, parsing each once.
class DashPatterns {
 public:
  explicit DashPatterns(const dxf::Drawing& drawing) : drawing_(drawing) {}

  /// The pattern, or null for a line type that is not in the table or has a total length of 0: such
  /// lines are continuous.
  const DashPattern* find(std::string_view lineType);

 private:
  const DashPattern* patternOf(std::string_view lineType);

  const dxf::Drawing& drawing_;
  /// The last name asked for: most drawings use a line type many times in a row.
  std::string lastName_;
  const DashPattern* last_ = nullptr;
  /// Of the drawing's line types, in their order; null while not needed.
  std::vector<std::unique_ptr<const DashPattern>> patterns_;
};

/// Walks a pattern along a length: returns its dashes over and over, until the length is used up or
/// a full pass made no progress.
class DashWalk {
 public:
  explicit DashWalk(const DashPattern& pattern) : pattern_(pattern), rest_(pattern.rest_) {}

  /// The next dash. `travelled` is the distance covered so far; false when there is no more
  /// progress.
  bool next(double travelled, double& dash);

 private:
  const DashPattern& pattern_;
  std::size_t index_ = 0;  ///< into the pattern's first dashes
  std::string_view rest_;
  bool started_ = false;
  double passStart_ = 0.0;
};

}  // namespace quillon::classic
