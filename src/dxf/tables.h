#pragma once

#include <string_view>
#include <vector>

#include "dxf/drawing.h"

namespace quillon::dxf {

/// The trimmed lines of one TABLE, from the line after "TABLE" up to and including "ENDTAB".
using SectionLines = std::vector<std::string_view>;

/// First index at or after `start` of a line that is exactly `text`, or -1.
std::ptrdiff_t findLine(const SectionLines& lines, std::size_t start, std::string_view text);

/// True when the upper-cased text is LTYPE, LAYER or STYLE.
bool isTableName(std::string_view text);

/// Parse one table each; every entry appends one record to the drawing. An entry starts at any
/// value line with the name of a table, so a layer named "Layer" adds one more entry: intended.
/// Throw RunTimeError when the lines end inside an entry or a code line is no group code.
void parseLineTypeTable(const SectionLines& lines, Drawing& drawing);
void parseLayerTable(const SectionLines& lines, Drawing& drawing);
void parseStyleTable(const SectionLines& lines, Drawing& drawing);

}  // namespace quillon::dxf
