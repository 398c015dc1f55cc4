#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "drawing_text.h"

namespace quillon::bench {

/// LINE entities on a few layers.
void makeLines(DrawingText& drawing, std::size_t bytes);
/// All kinds of entities, with blocks and line types, in the proportions of a real plan.
void makeMixed(DrawingText& drawing, std::size_t bytes);
/// Curves, splines and blocks under unequal scales: about 2.4 bytes are written for each one read.
void makeHeavy(DrawingText& drawing, std::size_t bytes);
/// LWPOLYLINEs of 100,000 vertices, open and closed; every fourth has bulges.
void makePolylines(DrawingText& drawing, std::size_t bytes);

/// A kind of drawing, of about a given size.
struct DrawingKind {
  std::string_view name;
  void (*make)(DrawingText& drawing, std::size_t bytes);
  /// Maximum conversion time, as a multiple of reading and splitting the file.
  double mostTime;
};

inline constexpr std::array<DrawingKind, 4> kDrawingKinds = {{
    {"lines", makeLines, 5.0},
    {"mixed", makeMixed, 5.0},
    {"heavy", makeHeavy, 9.0},
    {"polylines", makePolylines, 7.0},
}};

/// Layers of the generated drawings, in the order of their table.
inline constexpr std::array<std::string_view, 12> kLayers = {
    "0",         "WALLS",   "DOORS",   "Grid-Axes", "DIMENSIONS", "TEXT_25",
    "FURNITURE", "OUTLINE", "HOLES_3", "HATCHING",  "CENTRE",     "A-ELEC-CABLE-TRAY"};

/// The start of a drawing up to the end of its tables.
void writeHeader(DrawingText& drawing);
void writeTables(DrawingText& drawing);
/// An empty OBJECTS section and the end of the file.
void writeEnd(DrawingText& drawing);

}  // namespace quillon::bench
