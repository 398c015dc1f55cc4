#include <algorithm>
#include <map>

#include "base/ranges.h"
#include "base/units.h"
#include "geometry/degrees.h"
#include "preview/figure.h"
#include "preview/scene.h"
#include "preview/scene_layer_builder.h"

namespace quillon::preview {

/// Places a sheet and its library parts, and the parts in these.
class SceneBuilder {
 public:
  SceneBuilder(const eagle::Recording& recording, const geometry::StopCheck& stop,
               std::size_t mostPlaced)
      : figure_(recording),
        millimetres_(base::unitRecord(recording.unit).millimetres),
        stop_(stop),
        room_(mostPlaced) {
    scene_.limit_ = recording.limit * millimetres_;
  }

  std::shared_ptr<const Scene> make() {
    if (!addSheet(figure_.sheet(), {})) return nullptr;
    for (auto& [number, builder] : builders_) {
      SceneLayer layer = builder.finish(stop_);
      if (stop_()) return nullptr;
      if (layer.objectCount() == 0) continue;
      scene_.bounds_.add(layer.bounds());
      scene_.layers_.push_back(std::move(layer));
    }
    return std::make_shared<const Scene>(std::move(scene_));
  }

 private:
  static std::size_t sizeOf(const eagle::RecordedSheet& sheet) {
    std::size_t size = sheet.holes.size() + 1;
    for (const auto& [number, layer] : sheet.layers) {
      size += layer.wires.size() + layer.circles.size() + layer.corners.size() + layer.texts.size();
    }
    return size;
  }

  SceneLayerBuilder& builderOf(int number) {
    return builders_.try_emplace(number, number, millimetres_).first->second;
  }

  /// False when stopped.
  bool addSheet(const eagle::RecordedSheet& sheet, const ScenePlace& place) {
    // EAGLE draws the edge of a hole in the layer of outlines.
    constexpr int kDimensionLayer = 20;
    for (const auto& [number, layer] : sheet.layers) {
      if (!builderOf(number).add(layer, place, figure_.encoding(), stop_)) return false;
    }
    for (const eagle::RecordedHole& hole : sheet.holes) {
      builderOf(kDimensionLayer).addHole(hole, place);
    }
    open_.push_back(&sheet);
    const bool isDone = base::ranges::all_of(sheet.parts, [&](const eagle::RecordedPart& part) {
      const eagle::RecordedSheet* const content = figure_.partNamed(part.name);
      return content == nullptr || addPart(part, *content, place);
    });
    open_.pop_back();
    return isDone;
  }

  bool addPart(const eagle::RecordedPart& part, const eagle::RecordedSheet& content,
               const ScenePlace& place) {
    constexpr std::size_t kDeepest = 32;
    // A part within itself has no picture.
    if (base::ranges::find(open_, &content) != open_.end() || open_.size() > kDeepest) return true;
    const std::size_t size = sizeOf(content);
    if (size > room_) {
      ++scene_.partsLeftOut_;
      return !stop_();
    }
    room_ -= size;
    const geometry::Affine turn = geometry::Affine::turnTo(geometry::unitVector(part.degrees));
    return addSheet(content, {place.map * geometry::Affine::shift(part.at) * turn,
                              place.degrees + part.degrees, place.spin || part.spin});
  }

  Figure figure_;
  double millimetres_;
  const geometry::StopCheck& stop_;
  std::size_t room_;  ///< for further objects of parts
  std::map<int, SceneLayerBuilder> builders_;
  std::vector<const eagle::RecordedSheet*> open_;  ///< sheets within which this one is placed
  Scene scene_;
};

std::shared_ptr<const Scene> makeScene(const eagle::Recording& recording,
                                       const geometry::StopCheck& stop, std::size_t mostPlaced) {
  return SceneBuilder(recording, stop, mostPlaced).make();
}

}  // namespace quillon::preview
