#pragma once

#include <QTranslator>
#include <string_view>
#include <unordered_map>

#include "windows/app_context.h"

namespace quillon::windows {

/// Translates the texts of Qt's own dialogs, buttons and menus, which are English, into the present
/// language of the program. Every text of a new dialog follows; nothing has to be refreshed.
class QtTexts : public QTranslator {
 public:
  explicit QtTexts(const AppContext& context);

  bool isEmpty() const override { return false; }
  /// The null string, which lets Qt show its own text, for texts that the string table lacks.
  QString translate(const char* context, const char* text, const char* disambiguation,
                    int number) const override;

 private:
  const AppContext& context_;
  std::unordered_map<std::string_view, texts::TextId> ids_;  ///< by Qt's text
};

}  // namespace quillon::windows
