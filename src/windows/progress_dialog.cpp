#include "windows/progress_dialog.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QThread>

#include "windows/enter_key.h"
#include "windows/trap.h"

namespace quillon::windows {
namespace {

using texts::TextId;

constexpr int kComplete = 100;
constexpr int kLeastWidth = 60;  ///< in characters

QProgressBar* makeBar(QWidget* parent, const char* name) {
  auto* const bar = new QProgressBar(parent);
  bar->setObjectName(name);
  bar->setRange(0, kComplete);
  bar->setTextVisible(false);  // the label shows the number
  return bar;
}

QLabel* makeLabel(QWidget* parent, const char* name) {
  auto* const label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

ProgressDialog::ProgressDialog(AppContext& context, QWidget* parent)
    : QDialog(parent),
      context_(context),
      readLabel_(makeLabel(this, "labRead")),
      writeLabel_(makeLabel(this, "labWrite")),
      status_(makeLabel(this, "labInfo")),
      readBar_(makeBar(this, "pgrRead")),
      writeBar_(makeBar(this, "pgrWrite")),
      cancelButton_(new QPushButton(this)) {
  setObjectName("frmDxf_msg");
  cancelButton_->setObjectName("befAbbruch");
  QLabel* const statusTitle = makeLabel(this, "labStatus");
  statusTitle->setText("Status:");
  auto* const statusRow = new QHBoxLayout;
  statusRow->addWidget(statusTitle);
  statusRow->addWidget(status_, 1);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(readLabel_);
  layout->addWidget(readBar_);
  layout->addWidget(writeLabel_);
  layout->addWidget(writeBar_);
  layout->addLayout(statusRow);
  layout->addStretch();
  layout->addWidget(cancelButton_, 0, Qt::AlignHCenter);
  pressOnEnter(*cancelButton_);
  setFocusPolicy(Qt::ClickFocus);  // takes the focus from the button, but not by Tab
  setMinimumWidth(fontMetrics().averageCharWidth() * kLeastWidth);
  connect(cancelButton_, &QPushButton::clicked, this,
          trapped(context_, "frmDxf_msg", "befAbbruch_Click", [this] { cancel(); }));
  loadResources();
}

void ProgressDialog::loadResources() {
  setWindowTitle(context_.text(TextId::ProgressTitle));
  cancelButton_->setText(context_.text(TextId::ProgressCancel));
  readPrefix_ = context_.text(TextId::ProgressReading) + ' ';
  writePrefix_ = context_.text(TextId::ProgressWriting) + ' ';
  readLabel_->setText(context_.text(TextId::ProgressReading));
  writeLabel_->setText(context_.text(TextId::ProgressWriting));
  status_->clear();
  readBar_->setValue(0);
  writeBar_->setValue(0);
  cancelled_ = false;
  // A second press of Enter on Start must not reach the Cancel button.
  setFocus();
}

void ProgressDialog::setReadBeam(int value) { readBar_->setValue(value); }

void ProgressDialog::setWriteBeam(int value) { writeBar_->setValue(value); }

void ProgressDialog::read(int i) { readLabel_->setText(readPrefix_ + QString::number(i) + '%'); }

void ProgressDialog::write(int i) { writeLabel_->setText(writePrefix_ + QString::number(i) + '%'); }

void ProgressDialog::setProgress(bool writing, int percent) {
  if (writing) {
    setWriteBeam(percent);
    write(percent);
  } else {
    setReadBeam(percent);
    read(percent);
  }
}

void ProgressDialog::setStatus(std::string_view text) { status_->setText(toQt(text)); }

void ProgressDialog::cancel() {
  cancelled_ = true;
  hide();
}

void ProgressDialog::waitForEvents() {
  constexpr unsigned long kPause = 5;  // milliseconds
  QCoreApplication::processEvents();
  QThread::msleep(kPause);
}

}  // namespace quillon::windows
