#pragma once

#include <QTranslator>
#include <string_view>
#include <unordered_map>

#include "windows/app_context.h"

namespace quillon::windows {

/// Translates the English texts of Qt's dialogs, buttons and menus into the program's current
/// language. Dialogs created later use it automatically.
class QtTexts : public QTranslator {
 public:
  explicit QtTexts(const AppContext& context);

  bool isEmpty() const override { return false; }
  /// Returns a null string, so that Qt shows its own text, if the string table lacks it.
  QString translate(const char* context, const char* text, const char* disambiguation,
                    int number) const override;

 private:
  const AppContext& context_;
  std::unordered_map<std::string_view, texts::TextId> ids_;  ///< by Qt's text
};

}  // namespace quillon::windows
