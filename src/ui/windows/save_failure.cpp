#include "ui/windows/save_failure.h"

#include <QMessageBox>

#include "convert/paths.h"

namespace quillon::ui {

void showSaveFailure(const AppContext& context, QWidget* parent) {
  const std::string folder = convert::fromPath(context.store.programFolder());
  QMessageBox::warning(parent, context.text(2805), context.text(3150, {folder}));
}

}  // namespace quillon::ui
