#pragma once

#include <QTranslator>

#include "windows/app_context.h"

namespace quillon::windows {

/// Translates the English texts of Qt's own dialogs, buttons and menus into the program's current
/// language, whatever the system's language is. Dialogs created later use it automatically.
class QtTexts : public QTranslator {
 public:
  explicit QtTexts(const AppContext& context);

  bool isEmpty() const override { return false; }
  /// Returns a null string, so that Qt shows its own text, in English and for texts that Qt's
  /// German translation lacks.
  QString translate(const char* context, const char* text, const char* disambiguation,
                    int number) const override;

 private:
  const AppContext& context_;
  QTranslator german_;  ///< Qt's own
};

}  // namespace quillon::windows
