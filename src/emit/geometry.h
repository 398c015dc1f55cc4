#pragma once

namespace quillon::emit {

/// Direction of a vector in 0..2π: the arc tangent of y / x, corrected by quadrant; (0, 0) gives 0.
double polarAngle(double x, double y);

/// A point turned about the origin by `rotation` radians, through its polar form.
double rotateX(double x, double y, double rotation);
double rotateY(double x, double y, double rotation);

/// An angle in degrees brought into -360..360 by whole turns (720 gives 360).
double normaliseAngle(double degrees);

/// Whether two points lie near each other, by the tolerance of the unit. Operands are paired first
/// with second and third with fourth, whatever they stand for, and the tolerances of mm and mil
/// are not those that one would expect: both intended. Mode 1 halves both distances.
bool pointsNear(double a, double b, double c, double d, int mode, int unit);

}  // namespace quillon::emit
