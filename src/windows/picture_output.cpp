#include "windows/picture_output.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>

#include "base/quotable.h"
#include "windows/file_dialog.h"

namespace quillon::windows {
namespace {

using texts::TextId;

/// Pixels for each one on the screen, so that the picture can be enlarged.
constexpr double kFiner = 2.0;

bool write(const QImage& image, const QString& path) {
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && image.save(&file, "PNG") && file.commit();
}

}  // namespace

void savePicture(const AppContext& context, PictureView& view, const QString& drawing,
                 QWidget* owner) {
  const QFileInfo beside(drawing);
  ObjFiledialog dialog(context);
  dialog.setFilename(beside.completeBaseName() + ".png");
  dialog.Filter1Text = context.text(TextId::PictureFiles);
  dialog.Filter1Suffix = "*.png";
  dialog.DefaultExt = "png";
  dialog.DialogTitle = context.text(TextId::ViewSave).remove("...");
  dialog.InitDir = toQt(context.store.GetDirectory(fromQt(drawing)));
  dialog.Flags = kNameFlags;
  const QString path = dialog.ShowSave(owner);
  if (path.isEmpty()) return;
  if (write(view.toImage(view.size(), kFiner), path)) return;
  QMessageBox::warning(owner, context.text(TextId::ErrorTitle),
                       context.text(TextId::PictureNotSaved, {base::quotable(fromQt(path))}));
}

void printView(const AppContext& context, PictureView& view, QPrinter& printer, QWidget* owner) {
  QPainter painter;
  if (painter.begin(&printer)) {
    view.paintTo(painter, painter.viewport(), preview::Theme::Light);
    if (painter.end()) return;
  }
  const QString file = printer.outputFileName();
  const QString target = file.isEmpty() ? printer.printerName() : file;
  QMessageBox::warning(owner, context.text(TextId::ErrorTitle),
                       context.text(TextId::PictureNotPrinted, {base::quotable(fromQt(target))}));
}

void printPicture(const AppContext& context, PictureView& view, QWidget* owner) {
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    QMessageBox::information(owner, context.text(TextId::CaptionProgram),
                             context.text(TextId::NoPrinter));
    return;
  }
  QPrinter printer(QPrinter::HighResolution);
  if (view.width() > view.height()) printer.setPageOrientation(QPageLayout::Landscape);
  QPrintDialog dialog(&printer, owner);
  if (dialog.exec() == QDialog::Accepted) printView(context, view, printer, owner);
}

}  // namespace quillon::windows
