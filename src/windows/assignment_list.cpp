#include "windows/assignment_list.h"

#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>

#include "texts/layer_lists.h"
#include "windows/enter_key.h"
#include "windows/layer_colours.h"
#include "windows/trap.h"

namespace quillon::windows {
namespace {

using texts::TextId;

constexpr int kDrawingLayerColumn = 0;
constexpr int kAssignedColumn = 1;
constexpr int kAreasColumn = 2;

Qt::CheckState checkState(bool isChecked) { return isChecked ? Qt::Checked : Qt::Unchecked; }

/// Keys that change a check box.
bool isForCheckBox(const QEvent* event) {
  if (event == nullptr || event->type() != QEvent::KeyPress) return true;
  const int key = static_cast<const QKeyEvent*>(event)->key();
  return key == Qt::Key_Space || key == Qt::Key_Select;
}

/// Edits an EAGLE layer by a list of all of them.
class AssignmentDelegate : public QStyledItemDelegate {
 public:
  AssignmentDelegate(AppContext& context, QObject* parent)
      : QStyledItemDelegate(parent), context_(context) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    if (index.column() != kAssignedColumn) return nullptr;
    auto* const list = new QComboBox(parent);
    list->setAccessibleName(context_.text(TextId::ColumnLayer));
    list->addItem(context_.text(TextId::StandardLayerUsed));
    for (const std::string& entry : texts::editorLayers(context_.texts())) {
      list->addItem(layerSwatch(toQt(entry)), toQt(entry));
    }
    // A choice is final; leaving the cell is not needed to see it in the picture.
    connect(list, &QComboBox::activated, this, [this, list] {
      auto* const self = const_cast<AssignmentDelegate*>(this);
      Q_EMIT self->commitData(list);
      Q_EMIT self->closeEditor(list);
    });
    return list;
  }
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    auto* const list = static_cast<QComboBox*>(editor);
    list->setCurrentIndex(std::max(0, list->findText(index.data().toString())));
    list->showPopup();
  }
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override {
    const QString text = static_cast<QComboBox*>(editor)->currentText();
    if (text != index.data().toString()) model->setData(index, text);
  }

 private:
  AppContext& context_;
};

}  // namespace

AssignmentList::AssignmentList(AppContext& context, QWidget* parent)
    : QTreeWidget(parent), context_(context) {
  setObjectName("lstAssignment");
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setColumnCount(3);
  // The list of layers opens by a click or a key, not when a line becomes the current one.
  setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
  keepEnter(*this);
  const auto open = [this](QTreeWidgetItem* item) {
    attempt(context_, "lstAssignment", "editItem",
            [this, item] { editItem(item, kAssignedColumn); });
  };
  connect(this, &QTreeWidget::itemClicked, this, [open](QTreeWidgetItem* item, int column) {
    if (column == kAssignedColumn) open(item);
  });
  connect(this, &QTreeWidget::itemActivated, this, open);
  setItemDelegate(new AssignmentDelegate(context_, this));
  connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
    attempt(context_, "lstAssignment", "itemChanged", [this, item, column] {
      const std::string name = fromQt(item->text(kDrawingLayerColumn));
      if (column == kAreasColumn && onAreas) {
        onAreas(name, item->checkState(kAreasColumn) == Qt::Checked);
      }
      if (column != kAssignedColumn || !onAssigned) return;
      const QString entry = item->text(kAssignedColumn);
      const bool isStandard = entry == context_.text(TextId::StandardLayerUsed);
      onAssigned(name, isStandard ? std::string() : fromQt(entry));
    });
  });
}

void AssignmentList::loadResources() {
  setAccessibleName(context_.text(TextId::TabAssignment));
  setHeaderLabels({context_.text(TextId::ColumnDrawingLayer), context_.text(TextId::ColumnLayer),
                   context_.text(TextId::ColumnAreas)});
  headerItem()->setToolTip(kAreasColumn, context_.text(TextId::ColumnAreasTip));
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::Stretch);
  header()->setSectionResizeMode(kAreasColumn, QHeaderView::ResizeToContents);
}

void AssignmentList::offerAreas(bool isOffered) { setColumnHidden(kAreasColumn, !isOffered); }

QString AssignmentList::assignedText(const workbench::AssignedLayer& layer) const {
  return layer.layer.empty() ? context_.text(TextId::StandardLayerUsed) : toQt(layer.layer);
}

bool AssignmentList::shows(const std::vector<workbench::AssignedLayer>& layers) const {
  if (topLevelItemCount() != static_cast<int>(layers.size())) return false;
  for (int i = 0; i < topLevelItemCount(); ++i) {
    const workbench::AssignedLayer& layer = layers[static_cast<std::size_t>(i)];
    if (topLevelItem(i)->text(kDrawingLayerColumn) != toQt(layer.name)) return false;
    if (topLevelItem(i)->text(kAssignedColumn) != assignedText(layer)) return false;
    if (topLevelItem(i)->checkState(kAreasColumn) != checkState(layer.areas)) return false;
  }
  return true;
}

void AssignmentList::showLayers(const std::vector<workbench::AssignedLayer>& layers) {
  if (shows(layers)) return;  // an open list of layers stays open
  const QSignalBlocker quiet(this);
  const int current = std::max(indexOfTopLevelItem(currentItem()), 0);
  clear();
  for (const workbench::AssignedLayer& layer : layers) {
    auto* const item = new QTreeWidgetItem(this);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    item->setText(kDrawingLayerColumn, toQt(layer.name));
    item->setText(kAssignedColumn, assignedText(layer));
    if (layer.layer.empty()) continue;
    item->setIcon(kAssignedColumn, layerSwatch(toQt(layer.layer)));
    item->setCheckState(kAreasColumn, checkState(layer.areas));
    item->setToolTip(kAreasColumn, context_.text(TextId::ColumnAreasTip));
  }
  setCurrentItem(topLevelItem(current), kAssignedColumn);
}

/// Keys edit the assigned layer wherever the current cell is, but for those of a check box on one.
bool AssignmentList::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  if (index.column() == kAreasColumn && isForCheckBox(event)) {
    return QTreeWidget::edit(index, trigger, event);
  }
  return QTreeWidget::edit(index.siblingAtColumn(kAssignedColumn), trigger, event);
}

}  // namespace quillon::windows
