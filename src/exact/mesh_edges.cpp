#include "exact/mesh_edges.h"

#include <algorithm>

namespace quillon::exact {

void drawNet(const Item& item, Canvas& canvas, const MeshNet& net, const Canvas::Stroke& how) {
  const std::uint64_t size = net.points.size();
  // Compared without a product, which might not fit.
  const bool isWhole = net.rows > 0 && net.columns > 0 && net.rows <= size / net.columns;
  if (!isWhole) return canvas.lose(item, LossRule::DamagedEntity);
  const auto drawLine = [&](std::uint64_t first, std::uint64_t step, std::uint64_t count,
                            bool closes) {
    if (count < 2) return;
    Path line{{}, closes};
    for (std::uint64_t i = 0; i < count; ++i) {
      line.vertices.push_back({net.points[static_cast<std::size_t>(first + i * step)]});
    }
    canvas.stroke(item, line, Affine{}, how);
  };
  for (std::uint64_t row = 0; row < net.rows; ++row) {
    if (canvas.step()) return;
    drawLine(row * net.columns, 1, net.columns, net.rowsClose);
  }
  for (std::uint64_t column = 0; column < net.columns; ++column) {
    if (canvas.step()) return;
    drawLine(column, net.columns, net.rows, net.columnsClose);
  }
}

void EdgesOnce::draw(std::int64_t from, std::int64_t to) {
  const auto isIndex = [this](std::int64_t index) {
    return index >= 0 && static_cast<std::uint64_t>(index) < points_.size();
  };
  if (!isIndex(from) || !isIndex(to)) {
    sawWrongIndex_ = true;
    return;
  }
  const auto [low, high] =
      std::minmax({static_cast<std::uint64_t>(from), static_cast<std::uint64_t>(to)});
  constexpr int kIndexBits = 32;  // an entity has fewer points
  if (low == high || !drawn_.insert(high << kIndexBits | low).second) return;
  const Path edge{
      {{points_[static_cast<std::size_t>(from)]}, {points_[static_cast<std::size_t>(to)]}}, false};
  canvas_.stroke(item_, edge, Affine{}, how_);
}

}  // namespace quillon::exact
