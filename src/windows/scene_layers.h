#pragma once

#include <QSet>
#include <QTreeWidget>
#include <functional>

#include "preview/palette.h"
#include "preview/scene.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// EAGLE's layers with something on them: their colours, names and numbers of objects. A layer can
/// be hidden in the picture; it stays hidden while the drawing is converted again.
class SceneLayers : public QTreeWidget {
 public:
  SceneLayers(AppContext& context, QWidget* parent);

  void loadResources();
  /// The swatches have the colours of the picture.
  void showScene(const preview::Scene* scene, int targetKind, preview::Theme theme);
  bool isShown(int layer) const { return !hidden_.contains(layer); }

  std::function<void(int layer, bool shown)> onToggled;

 private:
  AppContext& context_;
  QSet<int> hidden_;
};

}  // namespace quillon::windows
