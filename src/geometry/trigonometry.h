#pragma once

namespace quillon::geometry {

/// The sine, cosine and arc tangent, in radians, that scripts depend on. They are the C library's
/// where its error stays close to half an ulp. Windows' library is less accurate near multiples of
/// pi, so Windows uses the rounded functions instead. Scripts of both systems then differ only
/// where the C library rounds the other way: one result in a thousand, by one ulp.
double sine(double x);
double cosine(double x);
double arcTangent(double x);

}  // namespace quillon::geometry
