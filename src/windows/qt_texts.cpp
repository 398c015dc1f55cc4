#include "windows/qt_texts.h"

namespace quillon::windows {
namespace {

/// The English texts of these entries are Qt's.
constexpr texts::TextRow kQtTexts = texts::textRow(texts::TextId::QtOK, texts::TextId::QtDel);

}  // namespace

QtTexts::QtTexts(const AppContext& context) : context_(context) {
  const texts::Texts english(texts::kEnglish);
  for (const texts::TextId id : kQtTexts) ids_.emplace(english(id), id);
}

// Our own texts do not use Qt's translation, so the context does not matter.
QString QtTexts::translate(const char*, const char* text, const char*, int) const {
  if (context_.LanguageOffset == texts::kEnglish || text == nullptr) return {};
  const auto found = ids_.find(text);
  return found == ids_.end() ? QString() : context_.text(found->second);
}

}  // namespace quillon::windows
