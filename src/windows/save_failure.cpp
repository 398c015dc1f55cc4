#include "windows/save_failure.h"

#include <QMessageBox>

#include "files/paths.h"

namespace quillon::windows {

using texts::TextId;

void showSaveFailure(const AppContext& context, QWidget* parent) {
  const std::string folder = files::fromPath(context.store.programFolder());
  QMessageBox::warning(parent, context.text(TextId::WarningTitle),
                       context.text(TextId::SettingsNotSaved, {folder}));
}

}  // namespace quillon::windows
