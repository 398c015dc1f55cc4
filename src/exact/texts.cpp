#include "exact/texts.h"

namespace quillon::exact {

void drawText(const Item&, Canvas&) {}
void drawAttribute(const Item&, Canvas&) {}
void drawAttributeDefinition(const Item&, Canvas&, bool) {}
void drawMtext(const Item&, Canvas&) {}
void drawParagraph(const Item&, const ParagraphText&, const Affine&, Canvas&) {}

}  // namespace quillon::exact
