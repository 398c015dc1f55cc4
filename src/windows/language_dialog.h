#pragma once

#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <functional>

#include "windows/app_context.h"

namespace quillon::windows {

/// Chooses the language. A selection applies immediately to windows loaded from then on, even if
/// the dialog is then cancelled (kept as it has always been); OK keeps it for the next start.
class LanguageDialog : public QDialog {
 public:
  /// `apply` updates the main window to the confirmed language.
  LanguageDialog(AppContext& context, std::function<void()> apply, QWidget* parent = nullptr);

  void loadResources();

 private:
  /// What faults of this window are reported as.
  static constexpr std::string_view kModule = "frmConfig";

  int chosen() const;
  void showLanguage();
  void confirm();

  AppContext& context_;
  std::function<void()> apply_;
  QComboBox* language_;
  QPushButton* ok_;
  QPushButton* cancel_;
};

}  // namespace quillon::windows
