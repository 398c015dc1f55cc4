#include "windows/loss_list.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "windows/enter_key.h"
#include "windows/trap.h"

namespace quillon::windows {
namespace {

using texts::TextId;

enum LossColumn : int { kWhatColumn, kLossColumns = 5 };

/// A list that nobody reads to its end takes long to fill.
constexpr std::size_t kMostRows = 2000;

}  // namespace

LossList::LossList(AppContext& context, QWidget* parent) : QTreeWidget(parent), context_(context) {
  setObjectName("lstLosses");
  keepEnter(*this);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setColumnCount(kLossColumns);
  const auto chosen = [this](QTreeWidgetItem* item) {
    attempt(context_, "lstLosses", "itemChosen", [this, item] {
      const int index = indexOfTopLevelItem(item);
      const auto row = static_cast<std::size_t>(index);
      if (index >= 0 && row < rows_.size() && onChosen) onChosen(rows_[row]);
    });
  };
  connect(this, &QTreeWidget::currentItemChanged, this, chosen);
  // The current line, chosen once more, goes to its place again.
  connect(this, &QTreeWidget::itemClicked, this, chosen);
  connect(this, &QTreeWidget::itemActivated, this, chosen);
}

void LossList::loadResources() {
  setHeaderLabels({context_.text(TextId::ColumnLoss), context_.text(TextId::ColumnObjects),
                   context_.text(TextId::ColumnKind), context_.text(TextId::ColumnDrawingLayer),
                   context_.text(TextId::ColumnLine)});
  header()->setStretchLastSection(false);
  for (int column = 0; column < kLossColumns; ++column) {
    header()->setSectionResizeMode(
        column, column == kWhatColumn ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
  }
}

void LossList::showLosses(std::vector<workbench::LossRow> rows, std::uint64_t count) {
  setAccessibleName(context_.text(TextId::TabLosses, {std::to_string(count)}));
  const std::size_t leftOut = rows.size() - std::min(rows.size(), kMostRows);
  rows.resize(rows.size() - leftOut);
  // The current line stays while the rest of a picture is worked out.
  if (rows == rows_ && leftOut == leftOut_) return;
  rows_ = std::move(rows);
  leftOut_ = leftOut;
  const QSignalBlocker quiet(this);
  clear();
  QList<QTreeWidgetItem*> items;
  for (const workbench::LossRow& row : rows_) {
    auto* const item = new QTreeWidgetItem({toQt(row.text), QString::number(row.count),
                                            toQt(row.kind), toQt(row.layer),
                                            row.line == 0 ? QString() : QString::number(row.line)});
    item->setToolTip(kWhatColumn, toQt(row.text));
    items << item;
  }
  if (leftOut_ > 0) {
    items << new QTreeWidgetItem(
        {context_.text(TextId::LossesLeftOut, {std::to_string(leftOut_)})});
  }
  addTopLevelItems(items);
}

void LossList::choose(int index) {
  if (QTreeWidgetItem* const item = topLevelItem(index)) {
    setCurrentItem(item);
    scrollToItem(item);
  }
}

}  // namespace quillon::windows
