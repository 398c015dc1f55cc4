#pragma once

#include <map>
#include <string_view>

#include "eagle/recording.h"
#include "geometry/box.h"

namespace quillon::preview {

/// False for what is too far away for a picture of everything to show anything, and for what is not
/// a number; in units of the script. The whole earth is within.
bool isInSight(double length);
bool isInSight(geometry::Point point);

/// What a script draws, as somebody sees it who looks at one sheet: the sheet, and the library
/// parts placed on it. Refers to the recording, which must outlive it.
class Figure {
 public:
  /// The sheet is the first one with something on it.
  explicit Figure(const eagle::Recording& recording);

  const eagle::RecordedSheet& sheet() const { return *sheet_; }
  base::Encoding encoding() const { return encoding_; }
  /// The content of a part; null for one that the script does not draw.
  const eagle::RecordedSheet* partNamed(std::string_view name) const;

  /// Around everything with its widths, in units of the script. Things at coordinates that no
  /// drawing has are left out.
  geometry::Box bounds() const;

 private:
  base::Encoding encoding_;
  std::map<std::string_view, const eagle::RecordedSheet*> byName_;
  const eagle::RecordedSheet* sheet_;
};

}  // namespace quillon::preview
