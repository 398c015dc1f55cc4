#pragma once

#include "classic/context.h"
#include "classic/dash_pattern.h"

namespace quillon::classic {

/// A straight line, dashed when a pattern is given (null: continuous). While dashing, the start
/// point moves along: afterwards x1 and y1 hold the end of the last dash, from which ellipses and
/// splines then go on.
void writeLine(Context& context, double& x1, double& y1, double x2, double y2, int layer,
               const DashPattern* dashes, double width);

/// A point as a filled dot.
void writePoint(Context& context, double x, double y, int layer);

}  // namespace quillon::classic
