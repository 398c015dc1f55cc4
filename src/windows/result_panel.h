#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <optional>
#include <string>

#include "convert/driver.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// Shows the result of a conversion, what to do with it, and what still applies from the previous
/// drawing. Hides itself when there is nothing to show.
class ResultPanel : public QFrame {
 public:
  explicit ResultPanel(AppContext& context, QWidget* parent = nullptr);

  void loadResources();
  /// Shows the result, if there is one.
  void showResult(const convert::ConversionResult& result);
  /// Shows a text below the last result, replacing an earlier one.
  void showNotice(const QString& notice);
  /// Removes the result, which was that of another drawing.
  void forgetResult();
  /// Mentions the layer file that was chosen for the previous drawing and is still in use; "" for
  /// none.
  void nameKeptLayers(const QString& path);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// What faults of this window are reported as.
  static constexpr std::string_view kModule = "fraResult";

  void openFolder();
  void refresh();
  /// Shows the text with its paths elided to a width in pixels.
  void fitTo(int room);
  void showText();
  int slack() const;
  QString elided(const QString& line) const;
  QString text() const;

  AppContext& context_;
  QLabel* text_;
  QPushButton* openFolder_;
  QPushButton* copyCommand_;
  std::optional<convert::ConversionResult> result_;
  QString keptLayers_;
  int room_ = 0;  ///< width to which the text was elided
  QString folder_;
  QString command_;
  QString notice_;  ///< below the result; "" for none
};

}  // namespace quillon::windows
