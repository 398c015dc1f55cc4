#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/settings.h"
#include "texts/string_table.h"

namespace quillon::workbench {

/// The name of an EAGLE layer as lists show it ("20 Dimension (B)"); only its number where EAGLE
/// has no name for it.
std::string layerName(int number, int targetKind, const texts::Texts& texts);

/// A DXF layer and where it goes.
struct AssignedLayer {
  std::string name;    ///< UTF-8, as the drawing or the layer file has it
  std::string layer;   ///< the entry that is assigned; "" where the standard layer is used
  bool areas = false;  ///< closed polylines become areas
};

/// The layers of a drawing with what a layer file says of them. `path` may be "" or name no file.
std::vector<AssignedLayer> assignedLayers(const std::vector<std::string>& names,
                                          const std::string& path, const texts::Texts& texts);

/// Assigns one layer in a layer file, which is found as for reading, and leaves the other
/// assignments as they are; a file that is not there is made. `entry` starts with the layer's
/// number; "" takes the assignment away. False, without a change, for a file with assignments that
/// cannot be saved as they are. Throws ReadError and what saveLayerRows() throws.
bool assignLayer(const std::string& path, std::string_view name, const std::string& entry);

/// Says the same way whether closed polylines on a layer become areas. Nothing to change for one
/// that is not assigned.
bool setAreas(const std::string& path, std::string_view name, bool areas);

}  // namespace quillon::workbench
