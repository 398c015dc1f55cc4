#include "convert/held_drawing.h"

#include "files/paths.h"

namespace quillon::convert {

HeldDrawing::HeldDrawing(const std::string& path, const DrawingInput::Cancelled& cancelled,
                         const dxf::InputLimits& limits)
    : HeldDrawing(path, DrawingInput::openFile(files::toPath(path), cancelled), cancelled, limits) {
}

}  // namespace quillon::convert
