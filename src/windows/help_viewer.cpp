#include "windows/help_viewer.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>
#include <memory>

#include "windows/enter_key.h"
#include "windows/system_help.h"

namespace quillon::windows {
namespace {

QString pageOf(int contextId) {
  const bool english = contextId >= texts::kEnglish;
  const QString language = english ? "en" : "de";
  const int page = english ? contextId - texts::kEnglish : contextId;
  if (page == kMainWindowHelp) return language + "/main-window.html";
  if (page == kLayerEditorHelp) return language + "/layer-editor.html";
  if (page == kPreviewHelp) return language + "/preview.html";
  return {};
}

}  // namespace

QString findHelpFolder(const QString& executableFolder) {
  for (const char* const place : {"/help", "/../share/quillon/help"}) {
    QString folder = QDir::cleanPath(executableFolder + place);
    if (QFileInfo(folder).isDir()) return folder;
  }
  return {};
}

HelpViewer::HelpViewer(QString folder, QWidget* parent)
    : QDialog(parent), folder_(std::move(folder)), page_(new QTextBrowser(this)) {
  setObjectName("frmHelp");
  page_->setObjectName("txtHelp");
  page_->setOpenLinks(true);
  page_->setSearchPaths({folder_});
  auto* const back = new QPushButton(QStringLiteral("←"), this);
  back->setObjectName("btnBack");
  back->setEnabled(false);
  pressOnEnter(*back);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(back);
  buttons->addStretch();
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(buttons);
  layout->addWidget(page_);
  constexpr int kColumns = 100;  // pictures of the pages fit
  constexpr int kRows = 36;
  resize(fontMetrics().averageCharWidth() * kColumns, fontMetrics().height() * kRows);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  connect(back, &QPushButton::clicked, page_, &QTextBrowser::backward);
  connect(page_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
  connect(page_, &QTextBrowser::sourceChanged, this,
          [this] { setWindowTitle(page_->documentTitle()); });
}

bool HelpViewer::showPage(int contextId) {
  const QString page = pageOf(contextId);
  const QString path = folder_ + "/" + page;
  if (page.isEmpty() || !QFileInfo(path).isFile()) return false;
  page_->setSource(QUrl::fromLocalFile(path));
  setWindowTitle(page_->documentTitle());
  return true;
}

bool openHelp(const AppContext& context, int contextId, QWidget* parent) {
  return openHelp(context, findHelpFolder(QCoreApplication::applicationDirPath()), contextId,
                  parent);
}

bool openHelp(const AppContext& context, const QString& folder, int contextId, QWidget* parent) {
  const int page = context.LanguageOffset + contextId;
  if (showSystemHelp(QCoreApplication::applicationDirPath(), page, parent)) return true;
  if (folder.isEmpty()) return false;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    auto* const open = dynamic_cast<HelpViewer*>(window);
    if (open == nullptr || !open->isVisible() || !open->showPage(page)) continue;
    open->setWindowState(open->windowState() & ~Qt::WindowMinimized);
    open->raise();
    open->activateWindow();
    return true;
  }
  auto viewer = std::make_unique<HelpViewer>(folder, parent);
  if (!viewer->showPage(page)) return false;
  viewer->setAttribute(Qt::WA_DeleteOnClose);
  viewer.release()->show();
  return true;
}

}  // namespace quillon::windows
