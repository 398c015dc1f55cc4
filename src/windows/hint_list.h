#pragma once

#include <QVBoxLayout>
#include <QWidget>
#include <functional>
#include <vector>

#include "windows/app_context.h"
#include "workbench/hints.h"

namespace quillon::windows {

/// One line for each hint, with a button that does what it offers.
class HintList : public QWidget {
 public:
  HintList(AppContext& context, QWidget* parent);

  void showHints(const std::vector<workbench::Hint>& hints);
  const std::vector<workbench::Hint>& hints() const { return hints_; }

  std::function<void(const workbench::Hint&)> onTaken;

 private:
  /// What faults of this window are reported as.
  static constexpr std::string_view kModule = "lstHints";

  AppContext& context_;
  QVBoxLayout* rows_;
  std::vector<workbench::Hint> hints_;
};

}  // namespace quillon::windows
