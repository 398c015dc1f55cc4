#include "convert/drawing_unit.h"

#include <array>
#include <cstddef>
#include <iterator>

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

constexpr int kMillimetres = 4;

int indexOf(double insUnits) {
  const bool known = insUnits >= 1.0 && insUnits < static_cast<double>(kInsUnits.size()) + 1.0;
  return known ? static_cast<int>(insUnits) : 0;
}

/// Units that drawings of boards are hardly ever in, though templates say so.
bool isRare(int index) {
  constexpr bool kRare[] = {false, false, true, true, false, false, true, true, true};
  return index < static_cast<int>(std::size(kRare)) && kRare[index];
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

std::optional<double> unitNamed(double insUnits) {
  const int index = indexOf(insUnits);
  if (index == 0) return std::nullopt;
  return kInsUnits[static_cast<std::size_t>(index) - 1];
}

std::string_view wordOfUnit(double millimetres) {
  for (std::size_t i = 1; i < kRows.size(); ++i) {
    if (kRows[i].millimetres == millimetres) return kRows[i].word;
  }
  return {};
}

bool needsSize(double insUnits) {
  const int index = indexOf(insUnits);
  return index != 0 && index != kMillimetres;
}

UnitChoice unitOf(double insUnits, const geometry::Box& bounds) {
  const int index = indexOf(insUnits);
  if (index == 0) return {1.0, true};
  const double named = kInsUnits[static_cast<std::size_t>(index) - 1];
  const double diagonal = bounds.diagonal();
  const bool isBelieved = !isRare(index) && isPlausible(diagonal * named);
  if (index == kMillimetres || isBelieved || !isPlausible(diagonal)) return {named};
  return {.millimetres = 1.0, .isDoubted = true, .named = named};
}

}  // namespace quillon::convert
