#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "batch/drawing_queue.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// Shows a queue of drawings as a table; reads only what is visible.
class QueueModel : public QAbstractTableModel {
 public:
  enum Column : int { kFile, kSize, kState, kLosses, kResult, kColumns };

  /// Both outlive the model.
  QueueModel(const AppContext& context, const batch::DrawingQueue& queue, QObject* parent);

  /// Shows other rows; selections go.
  void reset(const std::function<void()>& change);
  /// Shows the rows, which have stayed in their places, and the captions as they are now.
  void refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString text(const batch::QueueEntry& entry, int column) const;
  QString resultText(const batch::QueueEntry& entry) const;

  const AppContext& context_;
  const batch::DrawingQueue& queue_;
};

}  // namespace quillon::windows
