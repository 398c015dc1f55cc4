#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/units.h"
#include "convert/drawing_unit.h"
#include "exact/options.h"

namespace quillon::convert {

/// What the script draws into.
enum TargetKind : int { kBoard = 0, kSchematic = 1, kPackage = 2, kSymbol = 3 };

/// True for one of the four targets.
constexpr bool isTarget(int kind) { return kind >= kBoard && kind <= kSymbol; }

/// How blocks are converted.
enum BlockHandling : int { kDrawBlocks = 0, kUsedBlocksAsParts = 1, kAllBlocksAsParts = 2 };

/// The rules by which a drawing is translated.
enum class Rules : std::uint8_t {
  Classic,  ///< those that Quillon has always had
  Exact,    ///< those that show the drawing as a CAD program does
};

/// Versions of EAGLE, by their place in the list of a window.
inline constexpr int kEagle3 = 0;
inline constexpr int kEagle4 = 1;
inline constexpr int kEagle6 = 2;

/// Open ends of outlines that are told where there is little room.
inline constexpr std::size_t kGapsShown = 20;

/// The settings of one conversion. Texts are UTF-8. The defaults are those of a program without
/// settings.
struct ConversionJob {
  std::string dxfFile;
  std::string scriptFile;
  /// The two paths are exact, e.g. from a folder listing. Paths typed by a user are looked up
  /// ignoring case and with both separators.
  bool literalPaths = false;
  /// Put the script beside the drawing found, with its name; ignores `scriptFile`.
  bool scriptBesideDrawing = false;
  std::string drawingName;  ///< board, schematic or library; trimmed before use; may be empty
  int targetKind = kBoard;
  Rules rules = Rules::Classic;
  /// For the exact rules; target, version, unit and factor follow from the job.
  exact::Options exact;
  DrawingUnit drawingUnit = DrawingUnit::Auto;
  std::string layerFile;  ///< layer assignment file; may be empty
  std::string defaultLayer = "20 Dimension (B)";
  int version = kEagle4;
  base::Unit unit = base::Unit::Mil;
  double scale = 1.0;
  std::string scaleText = "1.000";  ///< as typed, for the report
  bool dotted = false;
  bool ellipses = false;
  int poly = 2;  ///< 0 wire of width 0, 1 wire with width, 2 polyline, -1 unset
  int blocks = kDrawBlocks;
  bool report = false;   ///< build the report and show it at the end
  bool allGaps = false;  ///< find all open ends of outlines even without a report
  bool arcToLine = false;
  double offsetX = 0.0;
  double offsetY = 0.0;
  double polyWidth = 0.0;
  bool overwriteScript = false;  ///< replace an existing script without asking

  bool operator==(const ConversionJob&) const = default;
};

/// The list text of a version; "" for an index out of range.
std::string_view versionText(int version);
/// The list text of a unit; "" for none.
std::string_view unitText(base::Unit unit);

}  // namespace quillon::convert
