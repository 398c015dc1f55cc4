#pragma once

#include <QDialog>
#include <QString>
#include <QTextBrowser>

#include "windows/app_context.h"

namespace quillon::windows {

/// Context ids of the help pages; the language offset is added to them.
inline constexpr int kMainWindowHelp = 1000;
inline constexpr int kLayerEditorHelp = 1100;
inline constexpr int kPreviewHelp = 1200;

/// The folder of help pages, beside the executable or in the share folder of its installation; ""
/// when there is none.
QString findHelpFolder(const QString& executableFolder);

/// Shows the help pages.
class HelpViewer : public QDialog {
 public:
  explicit HelpViewer(QString folder, QWidget* parent = nullptr);

  /// Shows the page for a context id (language offset included). False when there is none.
  bool showPage(int contextId);

 private:
  QString folder_;
  QTextBrowser* page_;
};

/// Opens the help at a page in the current language, reusing an open viewer. False when the help is
/// missing.
bool openHelp(const AppContext& context, int contextId, QWidget* parent);
/// The same for the pages in a folder.
bool openHelp(const AppContext& context, const QString& folder, int contextId, QWidget* parent);

}  // namespace quillon::windows
