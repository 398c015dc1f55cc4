#include "windows/report_window.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QVBoxLayout>
#include <cerrno>

#include "convert/messages.h"
#include "files/output_file.h"
#include "files/paths.h"
#include "windows/file_dialog.h"
#include "windows/trap.h"

namespace quillon::windows {

using texts::TextId;

ReportWindow::ReportWindow(AppContext& context, QWidget* parent)
    : QDialog(parent),
      context_(context),
      info_(new QPlainTextEdit(this)),
      ok_(new QPushButton(this)),
      copy_(new QPushButton(this)),
      save_(new QPushButton(this)) {
  setObjectName("frmReport");
  info_->setObjectName("txtInfo");
  ok_->setObjectName("btnOk");
  copy_->setObjectName("btnCopy");
  save_->setObjectName("btnSave");
  info_->setReadOnly(true);
  info_->setLineWrapMode(QPlainTextEdit::NoWrap);
  info_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  ok_->setDefault(true);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(copy_);
  buttons->addWidget(save_);
  buttons->addStretch();
  buttons->addWidget(ok_);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(info_);
  layout->addLayout(buttons);
  constexpr int kColumns = 98;
  constexpr int kRows = 40;
  const QFontMetrics metrics(info_->font());
  resize(metrics.horizontalAdvance('=') * kColumns, metrics.height() * kRows);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
  connect(copy_, &QPushButton::clicked, this, trapped(context_, kModule, "btnCopy_Click", [this] {
            QGuiApplication::clipboard()->setText(info_->toPlainText());
          }));
  connect(save_, &QPushButton::clicked, this,
          trapped(context_, kModule, "btnSave_Click", [this] { save(); }));
  loadResources();
  ok_->setFocus();
}

void ReportWindow::loadResources() {
  setWindowTitle(context_.text(TextId::ReportWindowTitle));
  ok_->setText(context_.text(TextId::ReportWindowClose));
  copy_->setText(context_.text(TextId::ReportWindowCopy));
  save_->setText(context_.text(TextId::ReportWindowSaveAs));
}

void ReportWindow::loadInfo(std::string_view report) {
  try {
    fill(report);
  } catch (const std::exception&) {
    report_.clear();
    info_->clear();
    const std::string folder = files::fromPath(context_.store.programFolder());
    QMessageBox::critical(this, context_.text(TextId::ErrorTitle),
                          context_.text(TextId::ReportFileNotLoaded, {folder + "\\Convers.lgf"}));
  }
}

void ReportWindow::fill(std::string_view report) {
  report_ = report;
  info_->setPlainText(toQt(report).remove('\r'));
}

void ReportWindow::save() {
  ObjFiledialog dialog(context_);
  dialog.Filter1Text = context_.text(TextId::TextFiles);
  dialog.Filter1Suffix = "*.txt";
  dialog.DialogTitle = context_.text(TextId::ReportDialogTitle);
  dialog.DefaultExt = "txt";
  const QString path = dialog.ShowSave(this);
  if (path.isEmpty()) return;
  const std::filesystem::path target = files::toPath(fromQt(path));
  try {
    if (files::isInMissingFolder(target)) throw files::WriteError(ENOENT);
    files::replaceFile(target, report_);
  } catch (const files::WriteError& error) {
    const texts::Texts texts = context_.texts();
    const convert::Messages messages(texts);
    QMessageBox::critical(this, context_.text(TextId::ErrorTitle),
                          toQt(messages.unwritableText(fromQt(path), target, error.reason())));
  }
}

}  // namespace quillon::windows
