#pragma once

#include "exact/canvas.h"

namespace quillon::exact {

void drawText(const Item& item, Canvas& canvas);
/// ATTRIB: the value of an attribute, unless it is invisible.
void drawAttribute(const Item& item, Canvas& canvas);
/// ATTDEF: outside of blocks its tag, within one its value if that is constant.
void drawAttributeDefinition(const Item& item, Canvas& canvas, bool isInBlock);
/// One within a block, with the text that the block shows there unless its value is constant.
void drawAttributeDefinition(const Item& item, Canvas& canvas, std::string_view text);
void drawMtext(const Item& item, Canvas& canvas);

/// What drawMtext draws, from values that other kinds have in groups of their own.
struct ParagraphText {
  std::string content;  ///< with its codes
  Point at;             ///< in the coordinates that the item's map maps
  double height = 0.0;
  double angle = 0.0;      ///< degrees
  double width = 0.0;      ///< at which lines break; 0: never
  double boxHeight = 0.0;  ///< as the drawing knows it; 0: unknown
  int attachment = 1;      ///< 1 to 9, from the top left to the bottom right
  double lineSpacing = 1.0;
  bool exactSpacing = false;
  std::string_view style;  ///< upper-cased
};
void drawParagraph(const Item& item, const ParagraphText& text, const Affine& map, Canvas& canvas);

}  // namespace quillon::exact
