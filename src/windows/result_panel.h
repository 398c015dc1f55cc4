#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <optional>
#include <string>

#include "convert/driver.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// Says at once what came out of a conversion and what to do with it, and what of the last drawing
/// holds for the next one. Hides itself when there is nothing to say.
class ResultPanel : public QFrame {
 public:
  explicit ResultPanel(AppContext& context, QWidget* parent = nullptr);

  void loadResources();
  /// Shows what came out, if anything did.
  void showResult(const convert::ConversionResult& result);
  /// Shows a text below what came out last, in the place of an earlier one.
  void showNotice(const QString& notice);
  /// The result was that of another drawing.
  void forgetResult();
  /// Names the layer file that was chosen for the last drawing and is still in use; "" for none.
  void nameKeptLayers(const QString& path);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void openFolder();
  void refresh();
  /// Shows the text with its paths elided to a width in pixels.
  void fitTo(int room);
  void showText();
  int slack() const;
  QString elided(const QString& line) const;
  QString text() const;
  QStringList resultLines(const convert::ConversionResult& result) const;

  AppContext& context_;
  QLabel* text_;
  QPushButton* openFolder_;
  QPushButton* copyCommand_;
  std::optional<convert::ConversionResult> result_;
  QString keptLayers_;
  int room_ = 0;  ///< width that the text was elided to
  QString folder_;
  QString command_;
  QString notice_;  ///< below the result; "" for none
};

}  // namespace quillon::windows
