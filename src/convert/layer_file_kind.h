#pragma once

#include <cstdint>
#include <string_view>

namespace quillon::convert {

/// What a file is that layer assignments are to be read from or saved into.
enum class LayerFileKind : std::uint8_t { LayerFile, Dxf, BinaryDxf, Dwg, Binary, OtherText };

/// A layer file is one that holds an assignment, or nothing at all; also one named *.lay, in any
/// case, in which only its assignments are missing. `bytes` are its whole contents.
LayerFileKind layerFileKind(std::string_view path, std::string_view bytes);

/// True for the name of a section that holds an assignment: a decimal number.
bool isAssignmentSection(std::string_view name);

}  // namespace quillon::convert
