#pragma once

#include <vector>

#include "exact/canvas.h"
#include "exact/text_layout.h"
#include "exact/texts.h"

namespace quillon::exact {

/// An MTEXT as its groups have it.
struct MtextGroups {
  ParagraphText text;
  Lettering lettering;     ///< around the entity, not in its object coordinates
  double elevation = 0.0;  ///< height of its place
  double rise = 0.0;       ///< of a step along the lines, and up
  double riseUp = 0.0;
  std::vector<LossRule> changes;  ///< what EAGLE does not show of it
};

/// Reads the groups of an MTEXT, which may be those embedded in another entity.
MtextGroups readMtext(const Item& item, EntityGroups groups);

/// Moves the groups on to those of the MTEXT embedded in an entity; false where there is none.
bool findEmbeddedMtext(EntityGroups& groups);

}  // namespace quillon::exact
