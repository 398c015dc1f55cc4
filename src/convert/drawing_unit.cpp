#include "convert/drawing_unit.h"

#include <array>
#include <cstddef>

namespace quillon::convert {
namespace {

struct Row {
  std::string_view word;
  double millimetres;
};
/// By DrawingUnit.
constexpr std::array<Row, 15> kRows = {{{"auto", 1.0},
                                        {"inch", 25.4},
                                        {"foot", 304.8},
                                        {"mile", 1609344.0},
                                        {"mm", 1.0},
                                        {"cm", 10.0},
                                        {"m", 1000.0},
                                        {"km", 1e6},
                                        {"microinch", 25.4e-6},
                                        {"mil", 0.0254},
                                        {"yard", 914.4},
                                        {"angstrom", 1e-7},
                                        {"nm", 1e-6},
                                        {"um", 0.001},
                                        {"dm", 100.0}}};

/// Millimetres in the units of $INSUNITS, from 1 on.
constexpr std::array<double, 16> kInsUnits = {25.4,  304.8,   1609344.0, 1.0,     10.0, 1000.0,
                                              1e6,   25.4e-6, 0.0254,    914.4,   1e-7, 1e-6,
                                              0.001, 100.0,   10000.0,   100000.0};

constexpr int kCentimetres = 5;

int indexOf(double insUnits) {
  const bool known = insUnits >= 1.0 && insUnits < static_cast<double>(kInsUnits.size()) + 1.0;
  return known ? static_cast<int>(insUnits) : 0;
}

/// Units that drawings of boards are hardly ever in, though templates say so.
bool isDoubtful(int index) {
  constexpr int kFirstTrusted = 9;
  return index != 1 && index != 4 && index != 0 && index < kFirstTrusted;
}

/// Whether something that large, in millimetres, may be a board or a part of one.
bool isPlausible(double diagonal) { return diagonal >= 2.0 && diagonal <= 2000.0; }

}  // namespace

double millimetresOf(DrawingUnit unit) { return kRows[static_cast<std::size_t>(unit)].millimetres; }

bool findDrawingUnit(std::string_view word, DrawingUnit& unit) {
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    if (kRows[i].word != word) continue;
    unit = static_cast<DrawingUnit>(i);
    return true;
  }
  return false;
}

std::string drawingUnitWords() {
  std::string words;
  for (const Row& row : kRows) words.append(words.empty() ? "" : "|").append(row.word);
  return words;
}

bool needsSize(double insUnits) { return isDoubtful(indexOf(insUnits)); }

UnitChoice unitOf(double insUnits, const geometry::Box& bounds) {
  const int index = indexOf(insUnits);
  if (index == 0) return {1.0, true, false};
  const double millimetres = kInsUnits[static_cast<std::size_t>(index) - 1];
  if (!isDoubtful(index)) return {millimetres, false, false};
  const double diagonal = bounds.diagonal();
  if (index == kCentimetres && isPlausible(diagonal * millimetres)) {
    return {millimetres, false, false};
  }
  if (isPlausible(diagonal)) return {1.0, false, true};
  return {millimetres, false, false};
}

}  // namespace quillon::convert
