#pragma once

#include "classic/context.h"
#include "classic/dash_pattern.h"

namespace quillon::classic {

/// A straight line, dashed when a pattern is given (null: continuous). Dashing moves the start
/// point: afterwards x1 and y1 are the end of the last dash, where ellipses and splines continue.
void writeLine(Context& context, double& x1, double& y1, double x2, double y2, int layer,
               const DashPattern* dashes, double width);

/// A point as a filled dot.
void writePoint(Context& context, double x, double y, int layer);

}  // namespace quillon::classic
