#pragma once

#include <QString>

#include "windows/app_context.h"
#include "windows/picture_view.h"

class QPrinter;

namespace quillon::windows {

/// Asks for a file and saves the view there, as PNG; says so when it cannot be written. `drawing`
/// is the path that the file is offered beside.
void savePicture(const AppContext& context, PictureView& view, const QString& drawing,
                 QWidget* owner);

/// Prints the view; says so when that fails.
void printView(const AppContext& context, PictureView& view, QPrinter& printer, QWidget* owner);

/// Asks for a printer and prints the view.
void printPicture(const AppContext& context, PictureView& view, QWidget* owner);

}  // namespace quillon::windows
