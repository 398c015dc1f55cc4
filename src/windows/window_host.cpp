#include "windows/window_host.h"

#include <QCoreApplication>
#include <QMessageBox>

#include "windows/file_dialog.h"
#include "windows/question.h"
#include "windows/report_window.h"

namespace quillon::windows {

using texts::TextId;

QString boxText(const std::string& text) { return toQt(text).replace('\r', '\n').trimmed(); }

void WindowHost::setProgress(bool writing, int percent) { progress_.setProgress(writing, percent); }

bool WindowHost::cancelRequested() {
  const bool ending = context_.faults != nullptr && context_.faults->ending();
  return ending || progress_.cancelRequested();
}

void WindowHost::processEvents() { QCoreApplication::processEvents(); }

bool WindowHost::ask(const convert::Message& question) {
  return askQuestion(context_, owner(), toQt(question.title), boxText(question.text),
                     QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

bool WindowHost::goOnPastLimit(const convert::Message& limit) {
  convert::Message question = limit;
  question.text += "\r" + fromQt(context_.text(TextId::GoOnWithoutLimits));
  return ask(question);
}

void WindowHost::tell(const convert::Message& message) {
  const bool warning = message.kind == convert::MessageKind::Warning;
  QMessageBox box(warning ? QMessageBox::Warning : QMessageBox::Critical, toQt(message.title),
                  boxText(message.text), QMessageBox::Ok, owner());
  box.setObjectName("message");
  box.setTextFormat(Qt::PlainText);
  // The box says what is wrong; the detail adds where and what to do.
  if (!warning && message.detail != message.text) box.setInformativeText(toQt(message.detail));
  box.setEnabled(true);
  box.exec();
}

std::string WindowHost::chooseDxfFile(const convert::FileQuestion& question) {
  ObjFiledialog dialog(context_);
  dialog.DialogTitle = toQt(question.title);
  dialog.Filter1Text = toQt(question.filterText);
  dialog.Filter1Suffix = toQt(question.filterPattern);
  dialog.Flags = kOpenFlags;
  dialog.InitDir = toQt(context_.store.GetDirectory(question.startPath));
  const QString path = dialog.ShowOpen(owner());
  if (!path.isEmpty() && onDrawingChosen) onDrawingChosen(path);
  return fromQt(path);
}

void WindowHost::showReport(std::string_view report) {
  progress_.hide();
  ReportWindow window(context_, window_);
  window.loadInfo(report);
  window.setEnabled(true);
  window.exec();
}

/// The active window. The main window is disabled meanwhile, and windows owned by it inherit that
/// unless they are enabled.
QWidget* WindowHost::owner() const {
  return progress_.isVisible() ? static_cast<QWidget*>(&progress_) : window_;
}

}  // namespace quillon::windows
