#include "windows/save_failure.h"

#include <QMessageBox>

#include "files/paths.h"

namespace quillon::windows {

void showSaveFailure(const AppContext& context, QWidget* parent) {
  const std::string folder = files::fromPath(context.store.programFolder());
  QMessageBox::warning(parent, context.text(2805), context.text(3150, {folder}));
}

}  // namespace quillon::windows
