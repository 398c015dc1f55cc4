#pragma once

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "errors/fault_scribe.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// Shows an error, offers to save, mail or print its protocol, and asks how to continue.
class ErrorWindow : public QDialog {
 public:
  ErrorWindow(const AppContext& context, const errors::ProgramIdentity& program,
              const errors::FaultReport& report, QWidget* parent);

  /// The user's choice; closing the window counts as the mildest one allowed.
  errors::Continuation choice() const { return choice_; }

 private:
  QWidget* makeContents();
  void makeFault(QVBoxLayout& layout);
  void makeCallStack(QVBoxLayout& layout);
  void makeButtons(QVBoxLayout& layout);
  QGroupBox* makeFrame(const char* name, const QString& caption);
  QPushButton* makeButton(const char* name, const char* caption, texts::TextId toolTip);
  void save();
  void mail();
  void print();
  /// Runs a button's action; its errors end here, as nothing is left to report them.
  void guarded(void (ErrorWindow::*action)());

  const AppContext& context_;
  const errors::ProgramIdentity& program_;
  const errors::FaultReport& report_;
  errors::Continuation choice_;
};

}  // namespace quillon::windows
