#pragma once

#include "settings/layer_rows.h"
#include "windows/whole_text_delegate.h"

namespace quillon::windows {

/// Edits the cells of the layer table: a text field for the DXF layer, and for the EAGLE layer a
/// list to choose from or type a number into.
class LayerDelegate : public WholeTextDelegate {
 public:
  LayerDelegate(const settings::LayerRows& rows, QObject* parent)
      : WholeTextDelegate(parent), rows_(rows) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;

 private:
  const settings::LayerRows& rows_;
};

/// True for a key that may be typed into an EAGLE layer's cell: digits, backspace, Enter and cursor
/// keys.
bool isLayerKey(int key, const QString& text);

}  // namespace quillon::windows
