#pragma once

namespace quillon::geometry {

/// The sine, cosine and arc tangent that scripts depend on, in radians. They are the C library's
/// where that is right to a little more than half a unit in the last place. That of Windows is not
/// near multiples of pi, so there they are rounded ones; scripts of both systems then differ in no
/// more than what the C library rounds the other way, which is one result in a thousand, by one
/// unit.
double sine(double x);
double cosine(double x);
double arcTangent(double x);

}  // namespace quillon::geometry
