#include "ui/windows/help_viewer.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace quillon::ui {
namespace {

constexpr int kColumns = 84;
constexpr int kRows = 36;

QString pageOf(int contextId) {
  const bool english = contextId >= resources::kEnglish;
  const QString language = english ? "en" : "de";
  const int page = english ? contextId - resources::kEnglish : contextId;
  if (page == kMainWindowHelp) return language + "/main-window.html";
  if (page == kLayerEditorHelp) return language + "/layer-editor.html";
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
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(back);
  buttons->addStretch();
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(buttons);
  layout->addWidget(page_);
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
  const QString folder = findHelpFolder(QCoreApplication::applicationDirPath());
  if (folder.isEmpty()) return false;
  auto* const viewer = new HelpViewer(folder, parent);
  viewer->setAttribute(Qt::WA_DeleteOnClose);
  if (!viewer->showPage(context.LanguageOffset + contextId)) {
    delete viewer;
    return false;
  }
  viewer->show();
  return true;
}

}  // namespace quillon::ui
