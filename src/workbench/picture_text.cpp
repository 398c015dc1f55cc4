#include "workbench/picture_text.h"

#include <cmath>

#include "base/number_text.h"
#include "workbench/layer_list.h"
#include "workbench/loss_rows.h"

namespace quillon::workbench {
namespace {

using texts::TextId;

constexpr double kInch = 25.4;
constexpr double kMil = 0.0254;

/// A number with at most so many decimals, and at least so many.
std::string rounded(double value, int most, int least) {
  const double power = std::pow(10.0, most);
  double whole = std::round(value * power) / power;
  if (whole == 0.0) whole = 0.0;  // without a sign
  std::string text = base::numberText(whole);
  if (text.find_first_of("eE") != std::string::npos) return text;
  std::size_t point = text.find('.');
  if (point == std::string::npos) {
    if (least == 0) return text;
    point = text.size();
    text += '.';
  }
  const std::size_t decimals = text.size() - point - 1;
  if (decimals < static_cast<std::size_t>(least)) {
    text.append(static_cast<std::size_t>(least) - decimals, '0');
  }
  return text;
}

std::string inchText(double millimetres) { return rounded(millimetres / kInch, 3, 3); }

}  // namespace

std::string millimetreText(double millimetres) { return rounded(millimetres, 4, 1); }

std::string milText(double millimetres) { return rounded(millimetres / kMil, 1, 0); }

std::string sizeText(const geometry::Box& box) {
  if (box.empty()) return {};
  const geometry::Point size = box.high - box.low;
  return millimetreText(size.x) + " x " + millimetreText(size.y) + " mm (" + inchText(size.x) +
         " x " + inchText(size.y) + " in)";
}

std::string placeText(geometry::Point place) {
  return millimetreText(place.x) + " / " + millimetreText(place.y) + " mm (" + milText(place.x) +
         " / " + milText(place.y) + " mil)";
}

std::string distanceText(geometry::Point from, geometry::Point to, const texts::Texts& texts) {
  const geometry::Point way = to - from;
  const double length = std::hypot(way.x, way.y);
  return texts(TextId::Distance,
               {millimetreText(length), milText(length), millimetreText(std::fabs(way.x)),
                millimetreText(std::fabs(way.y))});
}

std::string pictureNote(const Reading& result, const preview::Differences* differences,
                        const texts::Texts& texts) {
  if (!result.isWhole()) {
    if (result.messages.empty()) return {};
    const convert::Message& last = result.messages.back();
    return last.detail.empty() ? last.text : last.detail;
  }
  if (result.scene == nullptr) return {};
  if (result.scene->bounds().empty()) return std::string(texts(TextId::PictureEmpty));
  if (result.scene->partsLeftOut() > 0) {
    return texts(TextId::PicturePartsLeftOut, {std::to_string(result.scene->partsLeftOut())});
  }
  const bool isCut = differences != nullptr && differences->isCut;
  return isCut ? std::string(texts(TextId::PictureCut)) : std::string();
}

std::string pictureText(const Reading& result, const texts::Texts& texts) {
  if (result.scene == nullptr) return std::string(texts(TextId::PictureEmpty));
  std::string text = texts(TextId::PictureSize, {sizeText(result.scene->bounds())});
  for (const preview::SceneLayer& layer : result.scene->layers()) {
    text +=
        "\n" + texts(TextId::PictureLayer, {layerName(layer.number(), result.job.targetKind, texts),
                                            std::to_string(layer.objectCount())});
  }
  const std::uint64_t losses = lossCount(result);
  text += "\n" + (losses == 0 ? std::string(texts(TextId::PictureNothingLost))
                              : texts(TextId::PictureLosses, {std::to_string(losses)}));
  return text;
}

}  // namespace quillon::workbench
