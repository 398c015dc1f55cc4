#pragma once

#include <QTreeWidget>
#include <functional>
#include <vector>

#include "windows/app_context.h"
#include "workbench/loss_rows.h"

namespace quillon::windows {

/// What a result does not show as it is drawn; a line can be chosen to go to its place.
class LossList : public QTreeWidget {
 public:
  LossList(AppContext& context, QWidget* parent);

  void loadResources();
  /// `count` is how many entities are lost. Rows that were shown before keep the current one.
  void showLosses(std::vector<workbench::LossRow> rows, std::uint64_t count);
  /// Those that are listed: the first few thousand.
  const std::vector<workbench::LossRow>& rows() const { return rows_; }
  /// Makes a line the current one, as if it had been chosen.
  void choose(int index);

  std::function<void(const workbench::LossRow&)> onChosen;

 private:
  AppContext& context_;
  std::vector<workbench::LossRow> rows_;
  std::size_t leftOut_ = 0;  ///< rows that are not listed
};

}  // namespace quillon::windows
