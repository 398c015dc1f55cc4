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
    takeSize(code, base::numberValue(value));
    takeNumber(code, value);
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
    return std::move(style_);
  }

 private:
  static int whole(double number) { return static_cast<int>(std::clamp(number, -1e6, 1e6)); }

  void takeSize(int code, double number) {
    switch (code) {
      case 40:
        scale_ = number;
        break;
      case 41:
        style_.arrowSize = number;
        break;
      case 42:
        style_.offset = number;
        break;
      case 44:
        style_.overshoot = number;
        break;
      case 75:
        style_.hidesFirstExtension = number != 0.0;
        break;
      case 76:
        style_.hidesSecondExtension = number != 0.0;
        break;
      case 140:
        style_.textHeight = number;
        break;
      case 142:
        style_.tickSize = number;
        break;
      case 147:
        style_.gap = number;
        break;
      default:
        break;
    }
  }

  void takeNumber(int code, std::string_view value) {
    DimensionNumbers& numbers = style_.numbers;
    const double number = base::numberValue(value);
    switch (code) {
      case 3:
        numbers.around = value;
        break;
      case 45:
        numbers.rounding = number;
        break;
      case 71:
      case 72:
        tolerances_[code - 71] = number != 0.0;
        numbers.hasTolerances = tolerances_[0] || tolerances_[1];
        break;
      case 78:
        numbers.zeros = whole(number);
        break;
      case 79:
        numbers.angleZeros = whole(number);
        break;
      case 144:
        numbers.factor = number;
        break;
      case 170:
        numbers.hasAlternateUnits = number != 0.0;
        break;
      case 179:
        numbers.angleDecimals = whole(number);
        break;
      case 271:
        numbers.decimals = whole(number);
        break;
      case 270:
      case 277:
        numbers.lengthUnits = whole(number);
        break;
      case 275:
        numbers.angleUnits = whole(number);
        break;
      case 278:
        if (number > ' ' && number < 127.0) numbers.decimalPoint = static_cast<char>(number);
        break;
      default:
        break;
    }
  }

  void takeArrow(int code, std::string_view value) {
    ArrowBlocks& arrows = style_.arrows;
    switch (code) {
      case 173:
        arrows.differ = base::numberValue(value) != 0.0;
        break;
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
  dxf::GroupCursor groups = canvas.groupsOf(item);
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
  dxf::GroupCursor groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) overrides.take(group, variables);
  return variables.finish(item.entity.isInPaperSpace);
}

}  // namespace quillon::exact
