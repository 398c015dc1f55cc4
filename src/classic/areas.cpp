#include "classic/areas.h"

#include <cstddef>

namespace quillon::classic {

void writeSolid(Context& context, const std::array<Point, 4>& corners, int layer) {
  if (layer == kNotConverted) return;
  const auto& [c1, c2, c3, c4] = corners;
  const int changes = int{c2 != c1} + int{c3 != c2} + int{c4 != c3};
  if (changes < 3) return;
  std::array<eagle::Corner, 5> outline;
  std::size_t count = 0;
  const auto add = [&](Point corner) { outline[count++].at = corner; };
  add(c1);
  // Do not simplify these comparisons: they decide which corners scripts have for flat areas.
  if (c2 != c1) add(c2);
  if (c3 != c1 && c3 != c2) add(c3);
  if (c4 != c2 && c4 != c3) add(c4);
  if (c4 != c1) add(c1);
  context.commands.layer(layer);
  context.commands.area({context.settings.fillWidth, {outline.data(), count}});
}

}  // namespace quillon::classic
