#include "windows/qt_texts.h"

namespace quillon::windows {

QtTexts::QtTexts(const AppContext& context) : context_(context) {
  // Cannot fail: the file is part of the program.
  static_cast<void>(german_.load(":/i18n/qtbase_de.qm"));
}

QString QtTexts::translate(const char* context, const char* text, const char* disambiguation,
                           int number) const {
  if (context_.LanguageOffset == texts::kEnglish) return {};
  return german_.translate(context, text, disambiguation, number);
}

}  // namespace quillon::windows
