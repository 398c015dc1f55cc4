#pragma once

#include <QTranslator>

#include "windows/app_context.h"

namespace quillon::windows {

/// Translates the texts of Qt's own dialogs, buttons and menus, which are English, into the present
/// language of the program, whatever that of the system is. Every text of a new dialog follows;
/// nothing has to be refreshed.
class QtTexts : public QTranslator {
 public:
  explicit QtTexts(const AppContext& context);

  bool isEmpty() const override { return false; }
  /// The null string, which lets Qt show its own text, in English and for texts that Qt's German
  /// translation lacks.
  QString translate(const char* context, const char* text, const char* disambiguation,
                    int number) const override;

 private:
  const AppContext& context_;
  QTranslator german_;  ///< Qt's own
};

}  // namespace quillon::windows
