#pragma once

#include <string>
#include <string_view>

#include "exact/canvas.h"

namespace quillon::exact {

/// The arrows of dimensions and leaders, by the blocks that show them, upper-cased; empty for the
/// closed filled triangle.
struct ArrowBlocks {
  std::string both;
  std::string first;
  std::string second;
  std::string leader;
  bool differ = false;  ///< `first` and `second` count instead of `both`

  const std::string& at(bool isFirst) const {
    if (!differ) return both;
    return isFirst ? first : second;
  }
};

/// How the numbers of dimensions are written.
struct DimensionNumbers {
  double factor = 1.0;
  double rounding = 0.0;  ///< lengths become a multiple of this; 0: they do not
  int decimals = 4;
  int angleDecimals = 0;  ///< -1: as for lengths
  int zeros = 0;          ///< bit 4: none before the point, bit 8: none at the end
  int angleZeros = 0;     ///< bit 1: none before the point, bit 2: none at the end
  int lengthUnits = 2;    ///< 2 and 6: decimal numbers
  int angleUnits = 0;     ///< 0: degrees
  char decimalPoint = '.';
  std::string_view around{};  ///< with "<>" for the number, or what follows it
  bool hasTolerances = false;
  bool hasAlternateUnits = false;
};

/// The variables of a dimension style that dimensions without a block, leaders and tolerances are
/// drawn by. Lengths are in units of the drawing, their scale included. What a style does not say
/// is as in a new drawing in inches: CAD programs leave such values out of the file.
struct DimensionStyle {
  double arrowSize = 0.18;
  double tickSize = 0.0;  ///< above 0: oblique ticks instead of arrows
  double offset = 0.0625;
  double overshoot = 0.18;
  double textHeight = 0.18;
  double gap = 0.09;
  bool hidesFirstExtension = false;
  bool hidesSecondExtension = false;
  std::string_view textStyle;  ///< upper-cased; empty: unknown
  ArrowBlocks arrows;
  DimensionNumbers numbers;
};

/// The style that an entity names, with the entity's own changes.
DimensionStyle readDimensionStyle(const Item& item, const Canvas& canvas);

}  // namespace quillon::exact
