#pragma once

#include <QTreeWidget>
#include <functional>
#include <vector>

#include "windows/app_context.h"
#include "workbench/layer_list.h"

namespace quillon::windows {

/// The drawing's layers, each with its EAGLE layer, to be changed in place.
class AssignmentList : public QTreeWidget {
 public:
  AssignmentList(AppContext& context, QWidget* parent);

  void loadResources();
  void showLayers(const std::vector<workbench::AssignedLayer>& layers);

  /// Whether there is a choice of areas, which the exact rules alone know.
  void offerAreas(bool isOffered);

  /// `entry` is "" where the standard layer is to be used.
  std::function<void(const std::string& name, const std::string& entry)> onAssigned;
  std::function<void(const std::string& name, bool areas)> onAreas;

 protected:
  using QTreeWidget::edit;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

 private:
  QString assignedText(const workbench::AssignedLayer& layer) const;
  bool shows(const std::vector<workbench::AssignedLayer>& layers) const;

  AppContext& context_;
};

}  // namespace quillon::windows
