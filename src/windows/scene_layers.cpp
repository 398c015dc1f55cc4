#include "windows/scene_layers.h"

#include <QHeaderView>
#include <QSignalBlocker>

#include "windows/enter_key.h"
#include "windows/layer_colours.h"
#include "windows/trap.h"
#include "workbench/layer_list.h"

namespace quillon::windows {
namespace {

using texts::TextId;

constexpr int kLayerColumn = 0;
constexpr int kObjectsColumn = 1;
constexpr int kLayerNumberRole = Qt::UserRole;

}  // namespace

SceneLayers::SceneLayers(AppContext& context, QWidget* parent)
    : QTreeWidget(parent), context_(context) {
  setObjectName("lstLayers");
  keepEnter(*this);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setColumnCount(2);
  connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
    attempt(context_, "lstLayers", "itemChanged", [this, item, column] {
      if (column != kLayerColumn) return;
      const int layer = item->data(kLayerColumn, kLayerNumberRole).toInt();
      const bool shown = item->checkState(kLayerColumn) == Qt::Checked;
      if (shown) {
        hidden_.remove(layer);
      } else {
        hidden_.insert(layer);
      }
      if (onToggled) onToggled(layer, shown);
    });
  });
}

void SceneLayers::loadResources() {
  setAccessibleName(context_.text(TextId::TabLayers));
  setHeaderLabels({context_.text(TextId::ColumnLayer), context_.text(TextId::ColumnObjects)});
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(kLayerColumn, QHeaderView::Stretch);
  header()->setSectionResizeMode(kObjectsColumn, QHeaderView::ResizeToContents);
}

void SceneLayers::showScene(const preview::Scene* scene, int targetKind, preview::Theme theme) {
  const QSignalBlocker quiet(this);
  const int current = indexOfTopLevelItem(currentItem());
  clear();
  if (scene == nullptr) return;
  for (const preview::SceneLayer& layer : scene->layers()) {
    auto* const item = new QTreeWidgetItem(this);
    const QString name = toQt(workbench::layerName(layer.number(), targetKind, context_.texts()));
    item->setText(kLayerColumn, name);
    item->setIcon(kLayerColumn, layerSwatch(layer.number(), theme));
    item->setData(kLayerColumn, kLayerNumberRole, layer.number());
    item->setCheckState(kLayerColumn, isShown(layer.number()) ? Qt::Checked : Qt::Unchecked);
    item->setText(kObjectsColumn, locale().toString(static_cast<qulonglong>(layer.objectCount())));
    item->setTextAlignment(kObjectsColumn, Qt::AlignRight | Qt::AlignVCenter);
  }
  setCurrentItem(topLevelItem(current));
}

}  // namespace quillon::windows
