#include "geometry/object_coordinates.h"

#include <algorithm>
#include <cmath>

namespace quillon::geometry {
namespace {

struct Vector3 {
  double x;
  double y;
  double z;
};

Vector3 cross(const Vector3& a, const Vector3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vector3 normalised(const Vector3& v) {
  // Divided by the largest part first: squares of huge or tiny numbers are no numbers any more.
  const double largest = std::max({std::fabs(v.x), std::fabs(v.y), std::fabs(v.z)});
  if (!(largest > 0.0)) return {0.0, 0.0, 1.0};
  const Vector3 s{v.x / largest, v.y / largest, v.z / largest};
  const double length = std::sqrt(s.x * s.x + s.y * s.y + s.z * s.z);
  return {s.x / length, s.y / length, s.z / length};
}

struct Axes {
  Vector3 x;
  Vector3 y;
  Vector3 n;
};

Axes axesFor(double nx, double ny, double nz) {
  const bool usable = std::isfinite(nx) && std::isfinite(ny) && std::isfinite(nz);
  const Vector3 n = usable ? normalised({nx, ny, nz}) : Vector3{0.0, 0.0, 1.0};
  constexpr double kNear = 1.0 / 64.0;
  const bool nearZ = std::fabs(n.x) < kNear && std::fabs(n.y) < kNear;
  const Vector3 worldAxis = nearZ ? Vector3{0.0, 1.0, 0.0} : Vector3{0.0, 0.0, 1.0};
  const Vector3 ax = normalised(cross(worldAxis, n));
  return {ax, cross(n, ax), n};
}

double finiteOr0(double value) { return std::isfinite(value) ? value : 0.0; }

}  // namespace

Affine objectCoordinates(double nx, double ny, double nz, double elevation) {
  if (!std::isfinite(nx) || !std::isfinite(ny) || !std::isfinite(nz)) return {};
  const auto [ax, ay, n] = axesFor(nx, ny, nz);
  const double z = finiteOr0(elevation);
  // Adding 0 makes a 0 of a -0, which would show in maps built on this one.
  return {ax.x + 0.0, ay.x + 0.0, ax.y + 0.0, ay.y + 0.0, z * n.x + 0.0, z * n.y + 0.0};
}

PlaneHeight objectHeight(double nx, double ny, double nz, double elevation) {
  const auto [ax, ay, n] = axesFor(nx, ny, nz);
  return {ax.z + 0.0, ay.z + 0.0, finiteOr0(elevation) * n.z + 0.0};
}

}  // namespace quillon::geometry
