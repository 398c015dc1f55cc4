#pragma once

#include <QApplication>

#include "errors/fault_scribe.h"

namespace quillon::window {

/// The last net under all handlers of events: what one of them lets through is reported here.
class Application : public QApplication {
 public:
  using QApplication::QApplication;

  /// Null leaves errors alone. The reporter outlives its use here.
  void setFaults(errors::FaultScribe* faults) { faults_ = faults; }
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  errors::FaultScribe* faults_ = nullptr;
};

}  // namespace quillon::window
