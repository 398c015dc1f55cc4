#pragma once

namespace quillon::geometry {

/// Sine, cosine and arc tangent in radians, rounded to the nearest double on every system. Results
/// are computed to 80 bits or more, so about one in a thousand million is rounded the wrong way.
/// Infinities and NaN give NaN, except that the arc tangent of an infinity is a quarter turn.
double roundedSine(double x);
double roundedCosine(double x);
double roundedArcTangent(double x);
/// The direction of a point from the origin as std::atan2 has it, rounded in the same way.
double roundedDirection(double y, double x);

}  // namespace quillon::geometry
