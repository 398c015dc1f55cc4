#include "exact/dimension_drawing.h"

#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// A stroke across the line's end, rising to the right of it.
Path tickAt(const ArrowPlace& place, double size) {
  const Point half = geometry::turned({size, size}, place.direction);
  return {{{place.tip - half}, {place.tip + half}}, false};
}

void drawEnds(const Item& item, const DimensionFigure& figure, const DimensionStyle& style,
              const Affine& map, Canvas& canvas, BlockDrawer& blocks) {
  for (const bool isFirst : {true, false}) {
    const std::vector<ArrowPlace>& places = isFirst ? figure.firstArrows : figure.secondArrows;
    if (style.tickSize > 0.0) {
      for (const ArrowPlace& place : places) {
        canvas.stroke(item, tickAt(place, style.tickSize), map, {.cleanable = false});
      }
    } else if (style.arrows.differ) {
      drawArrows(item, style.arrows.at(isFirst), style.arrowSize, places, map, canvas, blocks);
    }
  }
  if (style.tickSize > 0.0 || style.arrows.differ) return;
  std::vector<ArrowPlace> places = figure.firstArrows;
  places.insert(places.end(), figure.secondArrows.begin(), figure.secondArrows.end());
  drawArrows(item, style.arrows.both, style.arrowSize, places, map, canvas, blocks);
}

/// What the text lacks, if the measure is part of it.
void noteMissingParts(const Item& item, const DimensionFigure& figure,
                      const DimensionNumbers& numbers, Canvas& canvas) {
  constexpr int kDecimal = 2;
  constexpr int kDecimalOfSystem = 6;
  const int units = numbers.lengthUnits;
  const bool isDecimal = figure.measured == Measured::Angle
                             ? numbers.angleUnits == 0
                             : units == kDecimal || units == kDecimalOfSystem;
  if (!isDecimal) canvas.lose(item, LossRule::DimensionUnits);
  if (numbers.hasTolerances || numbers.hasAlternateUnits) {
    canvas.lose(item, LossRule::DimensionTolerances);
  }
}

}  // namespace

ParagraphText dimensionParagraph(const DimensionValues& values, const DimensionFigure& figure,
                                 const DimensionStyle& style) {
  const std::string measure = measureText(figure.measure, figure.measured, style.numbers);
  ParagraphText text;
  text.content = dimensionText(values.text, measure);
  text.at = figure.textPlace;
  text.height = style.textHeight;
  text.angle = figure.textAngle;
  text.attachment = values.attachment;
  text.lineSpacing = values.lineSpacing;
  text.exactSpacing = values.exactSpacing;
  text.style = style.textStyle;
  return text;
}

void drawDimensionByPoints(const Item& item, const DimensionValues& values, Canvas& canvas,
                           BlockDrawer& blocks) {
  if (!values.usable()) return canvas.lose(item, LossRule::UnusableNumbers);
  const DimensionStyle style = readDimensionStyle(item, canvas);
  const std::optional<DimensionFigure> figure = dimensionFigure(values, style);
  const Affine map = item.objectMap(values.elevation);
  if (!figure) return canvas.lose(item, LossRule::NoSize, map(values.place));
  for (const Path& line : figure->lines) {
    canvas.stroke(item, line, map, {.cleanable = false});
  }
  drawEnds(item, *figure, style, map, canvas, blocks);
  if (values.hasNoText) return;
  if (showsMeasure(values.text)) noteMissingParts(item, *figure, style.numbers, canvas);
  drawParagraph(item, dimensionParagraph(values, *figure, style), map, canvas);
}

}  // namespace quillon::exact
