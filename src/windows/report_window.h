#pragma once

#include <QDialog>
#include <QPlainTextEdit>
#include <QPushButton>
#include <string_view>

#include "windows/app_context.h"

namespace quillon::windows {

/// Shows the report of a conversion.
class ReportWindow : public QDialog {
 public:
  explicit ReportWindow(AppContext& context, QWidget* parent = nullptr);

  void loadResources();
  /// Shows a report. On failure it says so, and the window stays empty.
  void loadInfo(std::string_view report);

 protected:
  /// Sets the text; throws on failure.
  virtual void fill(std::string_view report);

 private:
  /// What faults of this window are reported as.
  static constexpr std::string_view kModule = "frmReport";

  void save();

  AppContext& context_;
  QPlainTextEdit* info_;
  QPushButton* ok_;
  QPushButton* copy_;
  QPushButton* save_;
  std::string report_;
};

}  // namespace quillon::windows
