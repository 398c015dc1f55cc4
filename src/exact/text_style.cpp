#include "exact/text_style.h"

#include <string>

#include "base/encoding.h"
#include "base/number_text.h"
#include "exact/whole_numbers.h"
#include "geometry/vectors.h"

namespace quillon::exact {

TextStyle textStyle(std::string_view name, const Canvas& canvas) {
  constexpr int kVertical = 4;
  const dxf::Drawing& drawing = canvas.drawing();
  TextStyle style;
  const std::string upper = name.empty() ? "STANDARD" : base::upperCase(name, drawing.encoding);
  const dxf::LineRange range = drawing.tableEntries.find("STYLE", upper);
  if (range.begin == nullptr) return style;
  dxf::GroupCursor groups(dxf::LineCursor(range, drawing.lineEnds));
  for (dxf::Group group; groups.next(group);) {
    const double number = base::numberValue(group.value);
    if (group.code == 70) style.isVertical = (cutInteger(number) & kVertical) != 0;
    if (group.code == 41 && number > 0.0 && geometry::usable(number)) style.widthFactor = number;
    if (group.code == 50) style.oblique = number;
  }
  return style;
}

}  // namespace quillon::exact
