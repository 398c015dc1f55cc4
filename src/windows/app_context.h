#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "convert/command_line.h"
#include "errors/fault_scribe.h"
#include "settings/settings_store.h"
#include "texts/string_table.h"

namespace quillon::windows {

inline QString toQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string fromQt(const QString& text) { return text.toStdString(); }

/// What the program's windows share. Outlives them.
struct AppContext {
  settings::SettingsStore store;
  convert::CommandLine line;
  int LanguageOffset = texts::kGerman;
  errors::FaultScribe* faults = nullptr;  ///< the program's error reporter; null to let errors pass
  QString viewerPage = {};                ///< of a free DXF viewer; "" for none

  texts::Texts texts() const { return texts::Texts(LanguageOffset); }
  /// A text in the current language.
  QString text(texts::TextId id) const { return toQt(texts()(id)); }
  QString text(texts::TextId id, std::initializer_list<std::string_view> arguments) const {
    return toQt(texts()(id, arguments));
  }
};

}  // namespace quillon::windows
