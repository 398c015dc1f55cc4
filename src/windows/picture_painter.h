#pragma once

#include <QImage>
#include <functional>

#include "windows/picture_content.h"
#include "windows/picture_pen.h"

namespace quillon::windows {

/// Draws all of a picture but its notes, background included. Ends early, with part of it, once
/// the canvas says that it is over.
void paintPicture(const PictureContent& content, PictureCanvas& canvas);

/// The same as an image of this size in pixels. Null where there is no memory for it, or it is
/// over.
QImage pictureImage(const PictureContent& content, const PicturePlane& plane, QSize size,
                    const std::function<bool()>& isOver = {});

}  // namespace quillon::windows
