#pragma once

#include <string_view>
#include <vector>

#include "dxf/drawing.h"

namespace quillon::dxf {

/// The trimmed lines of one TABLE, from the line after "TABLE" up to and including "ENDTAB".
using SectionLines = std::vector<std::string_view>;

/// Index of the first line at or after `start` that is exactly `text`, or -1.
std::ptrdiff_t findLine(const SectionLines& lines, std::size_t start, std::string_view text);

/// True when the upper-cased text is LTYPE, LAYER or STYLE.
bool isTableName(std::string_view text);

/// Each parses one table and appends one record per entry to the drawing. An entry starts at any
/// value line with the name of a table, so a layer named "Layer" adds another entry; kept so that
/// scripts stay the same. Throw RunTimeError when the lines end within an entry or a code line is
/// not a group code.
void parseLineTypeTable(const SectionLines& lines, Drawing& drawing);
void parseLayerTable(const SectionLines& lines, Drawing& drawing);
/// Nothing of text styles is kept, but their table can be as damaged as the others.
void checkStyleTable(const SectionLines& lines);

}  // namespace quillon::dxf
