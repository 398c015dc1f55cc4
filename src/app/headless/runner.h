#pragma once

#include <functional>

#include "app/console/console.h"
#include "app/headless/options.h"
#include "errors/fault_scribe.h"

namespace quillon::headless {

/// Carries out the options and returns the program's exit code.
int run(const Options& options);

/// Converts one drawing, as convert::convertDXF does.
using ConvertDrawing = std::function<convert::ConversionResult(
    const convert::ConversionJob&, convert::ConversionHost&, const convert::Surroundings&)>;

/// The same with a reporter of what fails unexpectedly: where it does, the other drawings are
/// converted all the same. `convert` may be called by several threads at once.
int run(const Options& options, console::Console& console, errors::FaultScribe& faults,
        const ConvertDrawing& convert);

}  // namespace quillon::headless
