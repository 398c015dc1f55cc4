#pragma once

namespace quillon::geometry {

/// The sine, cosine and arc tangent, in radians, that scripts depend on. They are the C library's
/// where its error stays close to half an ulp. Windows' library is less accurate near multiples of
/// pi, so Windows uses the rounded functions instead. Scripts of both systems then differ only
/// where the C library rounds the other way: one result in a thousand, by one ulp.
///
/// They are never inlined: where a compiler sees sine and cosine of one angle together, it calls a
/// function that gives both, and other last digits.
[[gnu::noinline]] double sine(double x);
[[gnu::noinline]] double cosine(double x);
[[gnu::noinline]] double arcTangent(double x);

}  // namespace quillon::geometry
