#pragma once

#include <memory>
#include <optional>

#include "convert/conversion.h"
#include "convert/drawing_input.h"
#include "convert/layer_table.h"
#include "files/output_file.h"

namespace quillon::convert {

/// What a conversion that nothing speaks against is made from and written to.
struct PreparedFiles {
  std::optional<DrawingInput> drawing;        ///< none for one that is held in memory
  std::unique_ptr<files::OutputFile> script;  ///< null when none is wanted
  LayerTable layers;
};

/// Checks the job and opens its files, and asks the user where that is needed. Throws
/// EndOfConversion after a refusal, and WriteError and ReadError for what the caller has to tell: a
/// script that cannot be opened, and a cancel while opening the drawing had to wait.
PreparedFiles prepare(Conversion& conversion);

}  // namespace quillon::convert
