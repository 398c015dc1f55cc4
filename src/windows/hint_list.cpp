#include "windows/hint_list.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "windows/trap.h"

namespace quillon::windows {

HintList::HintList(AppContext& context, QWidget* parent)
    : QWidget(parent), context_(context), rows_(new QVBoxLayout(this)) {
  setObjectName("lstHints");
  rows_->setContentsMargins(0, 0, 0, 0);
  hide();
}

void HintList::showHints(const std::vector<workbench::Hint>& hints) {
  const auto isSame = [](const workbench::Hint& a, const workbench::Hint& b) {
    return a.offer == b.offer && a.text == b.text && a.button == b.button;
  };
  const bool same = std::equal(hints.begin(), hints.end(), hints_.begin(), hints_.end(), isSame);
  hints_ = hints;  // places may have changed
  // A button that has the focus stays where its hint does.
  if (same) return;
  qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
  for (std::size_t i = 0; i < hints_.size(); ++i) {
    auto* const line = new QWidget(this);
    auto* const text = new QLabel(toQt(hints_[i].text), line);
    text->setWordWrap(true);
    auto* const button = new QPushButton(toQt(hints_[i].button), line);
    button->setObjectName(QString("btnHint_%1").arg(i));
    button->setAccessibleName(text->text() + " " + button->text());
    auto* const row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(text, 1);
    row->addWidget(button);
    rows_->addWidget(line);
    connect(button, &QPushButton::clicked, this,
            trapped(context_, kModule, "btnHint_Click", [this, i] {
              const workbench::Hint hint = hints_.at(i);  // the list may change meanwhile
              if (onTaken) onTaken(hint);
            }));
  }
  setVisible(!hints_.empty());
}

}  // namespace quillon::windows
