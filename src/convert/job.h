#pragma once

#include <string>
#include <string_view>

#include "base/units.h"

namespace quillon::convert {

/// What the script draws into.
enum TargetKind : int { kBoard = 0, kSchematic = 1, kPackage = 2, kSymbol = 3 };

/// True for one of the four.
constexpr bool isTarget(int kind) { return kind >= kBoard && kind <= kSymbol; }

/// What becomes of blocks.
enum BlockHandling : int { kDrawBlocks = 0, kUsedBlocksAsParts = 1, kAllBlocksAsParts = 2 };

/// The settings of one conversion. Texts are UTF-8. The defaults are those of a program without
/// settings.
struct ConversionJob {
  std::string dxfFile;
  std::string scriptFile;
  /// The two paths are exact: they come from a folder's listing, not from a user, whose paths are
  /// looked up without regard to case and with both separators.
  bool literalPaths = false;
  /// The script goes beside the drawing that is found, with its name; `scriptFile` is not used.
  bool scriptBesideDrawing = false;
  std::string drawingName;  ///< board, schematic or library; trimmed before use; may be empty
  int targetKind = kBoard;
  std::string layerFile;  ///< layer assignment file; may be empty
  std::string defaultLayer = "20 Dimension (B)";
  int version = 1;  ///< 0 "3.5", 1 "4.x/5.x"
  base::Unit unit = base::Unit::Mil;
  double scale = 1.0;
  std::string scaleText = "1.000";  ///< as it was written, for the report
  bool dotted = false;
  bool ellipses = false;
  int poly = 2;  ///< 0 wire of width 0, 1 wire with width, 2 polyline, -1 unset
  int blocks = kDrawBlocks;
  bool report = false;  ///< build the report and show it at the end
  bool arcToLine = false;
  double offsetX = 0.0;
  double offsetY = 0.0;
  double polyWidth = 0.0;
  bool overwriteScript = false;  ///< replace an existing script without asking
};

/// The entry of the list of versions; "" for an index outside.
std::string_view versionText(int version);
/// The entry of the list of units; "" for none.
std::string_view unitText(base::Unit unit);

}  // namespace quillon::convert
