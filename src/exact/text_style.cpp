#include "exact/text_style.h"

#include <string>

#include "base/encoding.h"
#include "base/number_text.h"
#include "dxf/group_cursor.h"
#include "exact/whole_numbers.h"
#include "geometry/vectors.h"

namespace quillon::exact {

const TextStyle& TextStyles::find(std::string_view name) {
  if (const TextStyle* const* const recent = recent_.find(name)) return **recent;
  auto found = styles_.find(name);
  if (found == styles_.end()) found = styles_.emplace(name, read(name)).first;
  return *recent_.keep(found->first, &found->second);
}

TextStyle TextStyles::read(std::string_view name) const {
  constexpr int kVertical = 4;
  TextStyle style;
  const std::string upper = name.empty() ? "STANDARD" : base::upperCase(name, drawing_.encoding);
  const dxf::LineRange range = drawing_.tableEntries.find("STYLE", upper);
  if (range.begin == nullptr) return style;
  dxf::GroupCursor groups(dxf::LineCursor(range, drawing_.lineEnds));
  for (dxf::Group group; groups.next(group);) {
    const double number = base::numberValue(group.value);
    if (group.code == 70) style.isVertical = (cutInteger(number) & kVertical) != 0;
    if (group.code == 41 && number > 0.0 && geometry::usable(number)) style.widthFactor = number;
    if (group.code == 50) style.oblique = number;
  }
  return style;
}

}  // namespace quillon::exact
