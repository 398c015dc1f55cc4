#pragma once

#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <functional>

#include "windows/app_context.h"

namespace quillon::windows {

/// Chooses the language. A choice in the list holds at once for windows that are loaded from then
/// on, also when the dialog is then cancelled, as intended; OK keeps it for the next start.
class LanguageDialog : public QDialog {
 public:
  /// `apply` shows the main window in the language that was confirmed.
  LanguageDialog(AppContext& context, std::function<void()> apply, QWidget* parent = nullptr);

  void loadResources();

 private:
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
