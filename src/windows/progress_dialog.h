#pragma once

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <string_view>

#include "windows/app_context.h"

namespace quillon::windows {

/// Shows the progress of a conversion and lets the user cancel it.
class ProgressDialog : public QDialog {
 public:
  explicit ProgressDialog(AppContext& context, QWidget* parent = nullptr);

  /// Sets the captions and resets the dialog for the next conversion.
  void loadResources();

  int readBeam() const { return readBar_->value(); }
  int writeBeam() const { return writeBar_->value(); }
  void setReadBeam(int value);
  void setWriteBeam(int value);
  /// Shows the progress of reading, in percent, next to its label.
  void read(int i);
  /// The same for writing.
  void write(int i);
  /// Bar and label of writing or reading, in percent.
  void setProgress(bool writing, int percent);
  void setStatus(std::string_view text);

  /// True once the user has cancelled, until the next loadResources.
  bool cancelRequested() const { return cancelled_; }
  /// Cancels and closes the dialog, as its button, Esc and the window's close button do.
  void cancel();

  /// Lets events run and rests for a moment, where a conversion can only wait for a cancel.
  static void waitForEvents();

 protected:
  void reject() override { cancel(); }

 private:
  AppContext& context_;
  QLabel* readLabel_;
  QLabel* writeLabel_;
  QString readPrefix_;
  QString writePrefix_;
  QLabel* status_;
  QProgressBar* readBar_;
  QProgressBar* writeBar_;
  QPushButton* cancelButton_;
  bool cancelled_ = false;
};

}  // namespace quillon::windows
