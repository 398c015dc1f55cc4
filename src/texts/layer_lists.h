#pragma once

#include <string>
#include <vector>

#include "texts/string_table.h"

namespace quillon::texts {

/// Entries of the lists in which an EAGLE layer is chosen, in their order. Each begins with the
/// layer's number, apart from the entry without one that follows 52.

/// For a board or a package; ends with the layer 999, which is not converted.
std::vector<std::string> boardLayers(const Texts& texts);
/// Index of "20 Dimension (B)", the first choice among boardLayers.
inline constexpr int kFirstBoardChoice = 19;

/// For a schematic or a symbol.
std::vector<std::string> schematicLayers(const Texts& texts);
/// Index of "94 Symbols (S)", the first choice among schematicLayers.
inline constexpr int kFirstSchematicChoice = 41;

/// For the layer editor: layers of both kinds, and the layer 999 at the end.
std::vector<std::string> editorLayers(const Texts& texts);

}  // namespace quillon::texts
