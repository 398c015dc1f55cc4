#include "exact/areas.h"

namespace quillon::exact {

void drawSolid(const Item&, Canvas&) {}

void FaceRun::draw(const Item&, Canvas&) {}

}  // namespace quillon::exact
