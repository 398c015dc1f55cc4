#pragma once

#include "emit/dash_pattern.h"
#include "emit/emit_context.h"

namespace quillon::emit {

/// A straight line, dashed when a pattern is given (null: continuous). While dashing, the start
/// point moves along: afterwards x1 and y1 hold the end of the last dash, as intended.
void writeLine(EmitContext& context, double& x1, double& y1, double x2, double y2, int layer,
               const DashPattern* dashes, double width);

/// A point as a filled dot.
void writePoint(EmitContext& context, double x, double y, int layer);

}  // namespace quillon::emit
