#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include "convert/driver.h"
#include "ui/windows/app_context.h"

namespace quillon::ui {

/// Says at once what came out of a conversion, and what to do with it.
class ResultPanel : public QFrame {
 public:
  explicit ResultPanel(AppContext& context, QWidget* parent = nullptr);

  void loadResources();
  /// Shows what came out; hides itself when nothing did.
  void showResult(const convert::ConversionResult& result);
  /// Shows a text below what came out last, in the place of an earlier one.
  void showNotice(const QString& notice);

 private:
  void openFolder();
  void showText(const QString& text);
  QString resultText(const convert::ConversionResult& result) const;

  AppContext& context_;
  QLabel* text_;
  QPushButton* openFolder_;
  QPushButton* copyCommand_;
  QString folder_;
  QString command_;
  QString shownResult_;  ///< "" as long as there is none
};

}  // namespace quillon::ui
