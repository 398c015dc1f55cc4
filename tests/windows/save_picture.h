#pragma once

#include <QImage>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace quillon::windows {

/// Writes what a window shows, as PNG; whether it shows anything and could be written. Packed well,
/// the pictures would take longer than the windows.
inline bool savePicture(QWidget& window, const QString& path) {
  constexpr int kLightlyPacked = 80;
  const QImage seen = window.grab().toImage().convertToFormat(QImage::Format_RGB888);
  if (seen.isNull()) return false;
  QImage plain(seen.size(), seen.format());
  plain.fill(seen.pixelColor(0, 0));
  return seen != plain && seen.save(path, "PNG", kLightlyPacked);
}

}  // namespace quillon::windows
