#pragma once

#include <QApplication>

#include "errors/fault_scribe.h"

namespace quillon::window {

/// The last safety net around event handlers: reports exceptions that escape them.
class Application : public QApplication {
 public:
  using QApplication::QApplication;

  /// Null lets errors pass. The reporter must outlive its use here.
  void setFaults(errors::FaultScribe* faults) { faults_ = faults; }
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  errors::FaultScribe* faults_ = nullptr;
};

}  // namespace quillon::window
