#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "convert/command_line.h"
#include "errors/fault_scribe.h"
#include "ui/resources/string_table.h"
#include "ui/settings/settings_store.h"

namespace quillon::ui {

inline QString toQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string fromQt(const QString& text) { return text.toStdString(); }

/// What the windows of one program share. Lives as long as they do.
struct AppContext {
  settings::SettingsStore store;
  convert::CommandLine line;
  int LanguageOffset = resources::kGerman;
  errors::FaultScribe* faults =
      nullptr;  ///< the program's error reporter; null leaves errors alone

  resources::Texts texts() const { return resources::Texts(LanguageOffset); }
  /// A text of the present language.
  QString text(int id) const { return toQt(texts()(id)); }
  QString text(int id, std::initializer_list<std::string_view> arguments) const {
    return toQt(texts()(id, arguments));
  }
};

}  // namespace quillon::ui
