#include "exact/hatch.h"

namespace quillon::exact {

void drawHatch(const Item&, Canvas&) {}

}  // namespace quillon::exact
