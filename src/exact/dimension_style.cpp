#include "exact/dimension_style.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/encoding.h"
#include "base/number_text.h"

namespace quillon::exact {
namespace {

constexpr std::string_view kDefaultDimensionStyle = "STANDARD";

/// Takes the variables of a style by their group codes; later ones replace earlier ones.
class StyleVariables {
 public:
  explicit StyleVariables(const dxf::Drawing& drawing) : drawing_(drawing) {}

  void take(int code, std::string_view value) {
    const double number = base::numberValue(value);
    takeSize(code, number);
    takeCount(code, number);
    takeSwitch(code, number != 0.0);
    takeText(code, value, number);
    takeArrow(code, value);
    if (code == 340) style_.textStyle = drawing_.tableEntries.nameOf("STYLE", value);
  }

  DimensionStyle finish(bool isInPaperSpace) {
    const double scale = scale_ > 0.0 && geometry::usable(scale_) ? scale_ : 1.0;
    for (double* const size : {&style_.arrowSize, &style_.tickSize, &style_.offset,
                               &style_.overshoot, &style_.textHeight, &style_.gap}) {
      *size = geometry::usable(*size) ? *size * scale : 0.0;
    }
    // A negative gap asks for a frame around the text.
    style_.gap = std::fabs(style_.gap);
    double& factor = style_.numbers.factor;
    // A negative one is meant for paper space alone.
    if (factor < 0.0) factor = isInPaperSpace ? -factor : 1.0;
    if (!(factor > 0.0) || !geometry::usable(factor)) factor = 1.0;
    style_.numbers.hasTolerances = tolerances_[0] || tolerances_[1];
    return std::move(style_);
  }

 private:
  static int whole(double number) { return static_cast<int>(std::clamp(number, -1e6, 1e6)); }

  void takeSize(int code, double number) {
    const std::pair<int, double*> fields[] = {
        {40, &scale_},           {41, &style_.arrowSize},        {42, &style_.offset},
        {44, &style_.overshoot}, {140, &style_.textHeight},      {142, &style_.tickSize},
        {147, &style_.gap},      {45, &style_.numbers.rounding}, {144, &style_.numbers.factor},
    };
    for (const auto& [field, value] : fields) {
      if (field == code) *value = number;
    }
  }

  void takeCount(int code, double number) {
    DimensionNumbers& numbers = style_.numbers;
    const std::pair<int, int*> fields[] = {
        {78, &numbers.zeros},       {79, &numbers.angleZeros},   {179, &numbers.angleDecimals},
        {271, &numbers.decimals},   {270, &numbers.lengthUnits}, {277, &numbers.lengthUnits},
        {275, &numbers.angleUnits},
    };
    for (const auto& [field, value] : fields) {
      if (field == code) *value = whole(number);
    }
  }

  void takeSwitch(int code, bool isOn) {
    const std::pair<int, bool*> fields[] = {
        {71, &tolerances_[0]},
        {72, &tolerances_[1]},
        {75, &style_.hidesFirstExtension},
        {76, &style_.hidesSecondExtension},
        {170, &style_.numbers.hasAlternateUnits},
        {173, &style_.arrows.differ},
    };
    for (const auto& [field, value] : fields) {
      if (field == code) *value = isOn;
    }
  }

  void takeText(int code, std::string_view value, double number) {
    if (code == 3) style_.numbers.around = value;
    const bool isCharacter = number > ' ' && number < 127.0;
    if (code == 278 && isCharacter) style_.numbers.decimalPoint = static_cast<char>(number);
  }

  void takeArrow(int code, std::string_view value) {
    ArrowBlocks& arrows = style_.arrows;
    switch (code) {
      case 5:
        arrows.both = base::upperCase(value, drawing_.encoding);
        break;
      case 6:
        arrows.first = base::upperCase(value, drawing_.encoding);
        break;
      case 7:
        arrows.second = base::upperCase(value, drawing_.encoding);
        break;
      case 341:
        arrows.leader = blockOf(value);
        break;
      case 342:
        arrows.both = blockOf(value);
        break;
      case 343:
        arrows.first = blockOf(value);
        break;
      case 344:
        arrows.second = blockOf(value);
        break;
      default:
        break;
    }
  }

  std::string_view blockOf(std::string_view handle) const {
    return drawing_.tableEntries.nameOf("BLOCK_RECORD", handle);
  }

  const dxf::Drawing& drawing_;
  DimensionStyle style_;
  double scale_ = 1.0;
  bool tolerances_[2] = {};
};

dxf::LineRange styleEntry(const Item& item, const Canvas& canvas) {
  const dxf::Drawing& drawing = canvas.drawing();
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) {
    if (group.code != 3) continue;
    const std::string name = base::upperCase(group.value, drawing.encoding);
    const dxf::LineRange entry = drawing.tableEntries.find("DIMSTYLE", name);
    if (entry.begin != nullptr) return entry;
    break;
  }
  return drawing.tableEntries.find("DIMSTYLE", kDefaultDimensionStyle);
}

/// The entity's own changes are pairs of a variable's group code and its value, in braces after
/// "DSTYLE" in the extended data of "ACAD".
class StyleOverrides {
 public:
  void take(const dxf::Group& group, StyleVariables& variables) {
    constexpr int kApplication = 1001;
    constexpr int kText = 1000;
    constexpr int kBrace = 1002;
    constexpr int kWhole = 1070;
    if (group.code < kText) return;
    if (group.code == kApplication) {
      isAcad_ = group.value == "ACAD";
      isInStyle_ = false;
    } else if (!isInStyle_) {
      isInStyle_ = isAcad_ && group.code == kText && group.value == "DSTYLE";
      code_ = kNone;
    } else if (group.code == kBrace) {
      isInStyle_ = group.value == "{";
    } else if (code_ != kNone) {
      variables.take(code_, group.value);
      code_ = kNone;
    } else if (group.code == kWhole) {
      code_ = static_cast<int>(std::clamp(base::numberValue(group.value), 0.0, 1000.0));
    }
  }

 private:
  static constexpr int kNone = -1;

  bool isAcad_ = false;
  bool isInStyle_ = false;
  int code_ = kNone;
};

}  // namespace

DimensionStyle readDimensionStyle(const Item& item, const Canvas& canvas) {
  StyleVariables variables(canvas.drawing());
  const dxf::LineRange entry = styleEntry(item, canvas);
  if (entry.begin != nullptr) {
    constexpr int kExtendedData = 1000;
    dxf::GroupCursor groups(dxf::LineCursor(entry, canvas.drawing().lineEnds));
    for (dxf::Group group; groups.next(group);) {
      if (group.code < kExtendedData) variables.take(group.code, group.value);
    }
  }
  StyleOverrides overrides;
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) overrides.take(group, variables);
  return variables.finish(item.entity.isInPaperSpace);
}

}  // namespace quillon::exact
