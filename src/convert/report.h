#pragma once

#include <string>

#include "convert/block_library.h"
#include "convert/driver.h"
#include "convert/job.h"
#include "convert/layer_table.h"
#include "dxf/drawing.h"

namespace quillon::convert {

/// Builds the conversion report: UTF-8, each line preceded by CR LF.
std::string buildReport(const ConversionJob& job, const ConversionResult& result,
                        const dxf::Drawing& drawing, const LayerAssignment& layers,
                        const BlockLibrary& library, const texts::Texts& texts,
                        const files::LocalTime& now);

}  // namespace quillon::convert
