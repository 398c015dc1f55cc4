#include "windows/layer_delegate.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QSet>
#include <QValidator>
#include <algorithm>
#include <iterator>

#include "windows/app_context.h"
#include "windows/layer_colours.h"
#include "windows/layer_grid.h"

namespace quillon::windows {
namespace {

bool isDigit(QChar c) { return c >= '0' && c <= '9'; }

/// Discards key presses that type anything but digits, with a beep.
class DigitFilter : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto* const key = static_cast<QKeyEvent*>(event);
    const bool command = (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    if (command || isLayerKey(key->key(), key->text())) return false;
    QApplication::beep();
    return true;
  }
};

/// Rejects text that does not come from keys (pasted, dropped, or composed by an input method)
/// unless it only adds digits or makes the whole text a layer. Deleting is always allowed.
class LayerValidator : public QValidator {
 public:
  LayerValidator(const settings::LayerRows& rows, QObject* parent)
      : QValidator(parent), rows_(rows) {}

  /// Accepts any text.
  void allow(const QString& text) const {
    seen_.insert(text);
    last_ = text;
  }

  State validate(QString& text, int&) const override {
    // Undo restores texts that were there before.
    const bool fits = seen_.contains(text) || addsOnlyDigits(text) || rows_.isLayer(fromQt(text));
    if (!fits) return Invalid;
    allow(text);
    return Acceptable;
  }

 private:
  bool addsOnlyDigits(const QString& text) const {
    const auto start = std::mismatch(text.begin(), text.end(), last_.begin(), last_.end());
    const auto end = std::mismatch(text.rbegin(), std::make_reverse_iterator(start.first),
                                   last_.rbegin(), std::make_reverse_iterator(start.second));
    return std::all_of(start.first, end.first.base(), isDigit);
  }

  const settings::LayerRows& rows_;
  mutable QString last_;
  mutable QSet<QString> seen_;
};

/// A drop-down list that finds an entry by any part of its text.
class SearchingList : public QListView {
 public:
  using QListView::QListView;

  void keyboardSearch(const QString& search) override {
    if (typedAt_.isValid() && typedAt_.elapsed() > QApplication::keyboardInputInterval()) {
      typed_.clear();
    }
    typedAt_.restart();
    typed_ += search;
    QModelIndex found = firstMatch(typed_, Qt::MatchStartsWith);
    if (!found.isValid()) found = firstMatch(typed_, Qt::MatchContains);
    if (found.isValid()) setCurrentIndex(found);
  }

 private:
  QModelIndex firstMatch(const QString& text, Qt::MatchFlags how) const {
    const QModelIndexList found =
        model()->match(model()->index(0, 0), Qt::DisplayRole, text, 1, how);
    return found.isEmpty() ? QModelIndex() : found.front();
  }

  QString typed_;
  QElapsedTimer typedAt_;
};

}  // namespace

bool isLayerKey(int key, const QString& text) {
  if (text.isEmpty() || !text.front().isPrint()) return true;  // cursor keys, deletion, Enter
  return key == Qt::Key_Backspace || std::all_of(text.begin(), text.end(), isDigit);
}

QWidget* LayerDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const {
  if (index.column() == LayerGrid::kName) {
    auto* const field = new QLineEdit(parent);
    field->setObjectName("txtDXFLay");
    field->setFrame(false);
    return field;
  }
  auto* const list = new QComboBox(parent);
  list->setObjectName("cboLayer");
  list->setEditable(true);
  list->setInsertPolicy(QComboBox::NoInsert);
  list->setCompleter(nullptr);
  list->setFrame(false);
  list->setView(new SearchingList(list));
  for (const std::string& entry : rows_.entries()) {
    list->addItem(layerSwatch(toQt(entry)), toQt(entry));
  }
  QLineEdit* const field = list->lineEdit();
  field->setObjectName("txtDXFLay");
  // The list has the focus and passes keys on to its field, but keys may also go straight to the
  // field.
  auto* const filter = new DigitFilter(list);
  list->installEventFilter(filter);
  field->installEventFilter(filter);
  field->setValidator(new LayerValidator(rows_, list));
  connect(field, &QLineEdit::inputRejected, field, [] { QApplication::beep(); });
  auto* const self = const_cast<LayerDelegate*>(this);
  // A choice takes effect at once; the list stays until the cell is left.
  connect(list, &QComboBox::activated, self, [self, list] { Q_EMIT self->commitData(list); });
  return list;
}

void LayerDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const QString text = index.data(Qt::EditRole).toString();
  if (auto* const list = qobject_cast<QComboBox*>(editor)) {
    // A file may contain a number that cannot be typed here.
    static_cast<const LayerValidator*>(list->validator())->allow(text);
    list->setCurrentIndex(list->findText(text, Qt::MatchExactly));
    list->setEditText(text);
    list->lineEdit()->selectAll();
  } else if (auto* const field = qobject_cast<QLineEdit*>(editor)) {
    field->setText(text);
  }
}

void LayerDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                 const QModelIndex& index) const {
  QString text;
  if (const auto* const list = qobject_cast<QComboBox*>(editor)) text = list->currentText();
  if (const auto* const field = qobject_cast<QLineEdit*>(editor)) text = field->text();
  model->setData(index, text, Qt::EditRole);
}

}  // namespace quillon::windows
