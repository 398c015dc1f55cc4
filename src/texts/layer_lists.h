#pragma once

#include <string>
#include <vector>

#include "texts/string_table.h"

namespace quillon::texts {

/// Entries of the lists for choosing an EAGLE layer, in display order. Each begins with the layer's
/// number, except the unnumbered one after 52.

/// For a board or a package; ends with layer 999, which means "do not convert".
std::vector<std::string> boardLayers(const Texts& texts);
/// Index of "20 Dimension (B)", the first choice among boardLayers.
inline constexpr int kFirstBoardChoice = 19;

/// For a schematic or a symbol.
std::vector<std::string> schematicLayers(const Texts& texts);
/// Index of "94 Symbols (S)", the first choice among schematicLayers.
inline constexpr int kFirstSchematicChoice = 41;

/// For the layer editor: layers of both kinds, then layer 999.
std::vector<std::string> editorLayers(const Texts& texts);

}  // namespace quillon::texts
