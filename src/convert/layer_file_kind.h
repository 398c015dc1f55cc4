#pragma once

#include <cstdint>
#include <string_view>

namespace quillon::convert {

/// What kind of file layer assignments are to be read from or saved to.
enum class LayerFileKind : std::uint8_t { LayerFile, Dxf, BinaryDxf, Dwg, Binary, OtherText };

/// A layer file is one that contains an assignment, is empty, or is named *.lay (in any case) and
/// lacks nothing but assignments. `bytes` is its whole contents.
LayerFileKind layerFileKind(std::string_view path, std::string_view bytes);

/// True for the name of an assignment section: a decimal number.
bool isAssignmentSection(std::string_view name);

}  // namespace quillon::convert
