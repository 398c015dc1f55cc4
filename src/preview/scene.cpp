#include "preview/scene.h"

#include <algorithm>

namespace quillon::preview {
namespace {

/// Hands the things that may touch a box on one by one. Returns false once a visit is ended.
template <typename Thing, typename Take>
bool visitEach(const SceneThings<Thing>& all, const geometry::Box& box, const Take& take) {
  bool goOn = true;
  all.tree.visit(box, [&](std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end && goOn; ++i) goOn = take(all.things[i]);
    return goOn;
  });
  return goOn;
}

template <typename Thing>
std::size_t bytesOf(const SceneThings<Thing>& all) {
  return all.things.capacity() * sizeof(Thing) + all.tree.bytes();
}

}  // namespace

std::size_t SceneLayer::objectCount() const {
  return segmentCount() + circles_.things.size() + areas_.things.size() + texts_.things.size();
}

void SceneLayer::visit(const geometry::Box& box, SceneVisitor& visitor) const {
  bool goOn = visitEach(areas_, box, [&](const Area& area) {
    return visitor.area(std::span(corners_).subspan(area.first, area.count), area.width);
  });
  if (!goOn) return;
  lineTree_.visit(box, [&](std::size_t first, std::size_t end) {
    return goOn = visitor.lines(std::span(lines_).subspan(first, end - first),
                                std::span(widths_).subspan(first, end - first));
  });
  if (!goOn) return;
  goOn = visitEach(arcs_, box, [&](const SceneArc& arc) { return visitor.arc(arc); }) &&
         visitEach(circles_, box, [&](const SceneCircle& c) { return visitor.circle(c); });
  if (goOn) visitEach(texts_, box, [&](const eagle::RecordedText& t) { return visitor.text(t); });
}

std::size_t SceneLayer::bytes() const {
  std::size_t bytes = sizeof *this + lines_.capacity() * sizeof(SceneLine) +
                      widths_.capacity() * sizeof(float) + lineTree_.bytes() + bytesOf(arcs_) +
                      bytesOf(circles_) + bytesOf(areas_) +
                      corners_.capacity() * sizeof(SceneCorner) + bytesOf(texts_);
  for (const eagle::RecordedText& text : texts_.things) {
    bytes += text.align.capacity() + text.content.capacity();
  }
  return bytes;
}

const SceneLayer* Scene::layer(int number) const {
  const auto found =
      std::find_if(layers_.begin(), layers_.end(),
                   [number](const SceneLayer& layer) { return layer.number() == number; });
  return found == layers_.end() ? nullptr : &*found;
}

std::size_t Scene::segmentCount() const {
  std::size_t count = 0;
  for (const SceneLayer& layer : layers_) count += layer.segmentCount();
  return count;
}

std::size_t Scene::objectCount() const {
  std::size_t count = 0;
  for (const SceneLayer& layer : layers_) count += layer.objectCount();
  return count;
}

std::size_t Scene::bytes() const {
  std::size_t bytes = sizeof *this;
  for (const SceneLayer& layer : layers_) bytes += layer.bytes();
  return bytes;
}

}  // namespace quillon::preview
