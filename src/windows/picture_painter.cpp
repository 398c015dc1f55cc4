#include "windows/picture_painter.h"

#include <cmath>

#include "preview/scene_colours.h"
#include "preview/view.h"

namespace quillon::windows {
namespace {

using geometry::Box;

/// Pixels that differences are wide at least.
constexpr double kDifferencePixels = 3.0;

class Painting {
 public:
  Painting(const PictureContent& content, PictureCanvas& canvas)
      : content_(content),
        canvas_(canvas),
        seen_(canvas.plane.seen(canvas.size, canvas.hairline + kDifferencePixels + 1.0)) {}

  void paint() {
    const preview::Theme theme = content_.style.theme;
    canvas_.painter.fillRect(QRectF(QPointF(), canvas_.size),
                             toQt(preview::backgroundColour(theme)));
    canvas_.painter.setRenderHint(QPainter::Antialiasing);
    if (const preview::Scene* const drawing = content_.shownDrawing()) {
      const bool alone = content_.style.mode == PictureMode::Drawing;
      const auto colour = alone ? preview::drawingColour(theme) : preview::paleDrawingColour(theme);
      for (const preview::SceneLayer& layer : drawing->layers()) putLayer(layer, toQt(colour));
    }
    if (const preview::Scene* const result = content_.shownResult()) {
      for (const preview::SceneLayer& layer : result->layers()) {
        if (content_.isHidden(layer.number())) continue;
        putLayer(layer, toQt(preview::colourOfLayer(layer.number(), theme)));
      }
    }
    if (const preview::Differences* const differences = content_.shownDifferences()) {
      putSide(differences->onlyDrawing, toQt(preview::onlyDrawingColour(theme)));
      putSide(differences->onlyResult, toQt(preview::onlyResultColour(theme)));
    }
  }

 private:
  bool isOver() const { return canvas_.isOver && canvas_.isOver(); }

  void putLayer(const preview::SceneLayer& layer, const QColor& colour) {
    if (isOver()) return;
    PicturePen pen(canvas_, colour, canvas_.hairline);
    layer.visit(seen_, pen);
    pen.flush();
  }

  void putSide(const preview::DifferenceSide& side, const QColor& colour) {
    PicturePen pen(canvas_, colour, kDifferencePixels * canvas_.hairline);
    std::vector<float> widths;
    side.visit(seen_, [&](std::span<const preview::SceneLine> pieces) {
      widths.assign(pieces.size(), 0.0F);
      return pen.lines(pieces, widths);
    });
    pen.flush();
  }

  const PictureContent& content_;
  PictureCanvas& canvas_;
  Box seen_;
};

}  // namespace

void paintPicture(const PictureContent& content, PictureCanvas& canvas) {
  Painting(content, canvas).paint();
}

QImage pictureImage(const PictureContent& content, const PicturePlane& plane, QSize size,
                    const std::function<bool()>& isOver) {
  QImage image(size, QImage::Format_RGB32);
  if (image.isNull()) return image;
  // The painter draws on the same pixels; nothing else shares them.
  auto* const pixels = reinterpret_cast<std::uint32_t*>(image.bits());
  const preview::Raster raster(pixels, static_cast<std::size_t>(image.bytesPerLine()) / 4U,
                               size.width(), size.height());
  QPainter painter(&image);
  PictureCanvas canvas{painter, plane, QSizeF(size), content.style.hairline, raster, isOver};
  paintPicture(content, canvas);
  painter.end();
  return isOver && isOver() ? QImage() : image;
}

}  // namespace quillon::windows
