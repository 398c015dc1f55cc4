#pragma once

namespace quillon::geometry {

/// Sine, cosine and arc tangent in radians, rounded to the nearest double whatever the system: the
/// results are worked out to 80 bits or more, so that one that is rounded the other way is as rare
/// as one in a thousand million. Infinities and NaN give NaN, but for the arc tangent of an
/// infinity, which is a quarter turn.
double roundedSine(double x);
double roundedCosine(double x);
double roundedArcTangent(double x);

}  // namespace quillon::geometry
