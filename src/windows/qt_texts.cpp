#include "windows/qt_texts.h"

namespace quillon::windows {
namespace {

/// These entries of the string table have Qt's text as their English one.
constexpr texts::TextRow kQtTexts = texts::textRow(texts::TextId::QtOK, texts::TextId::QtDel);

}  // namespace

QtTexts::QtTexts(const AppContext& context) : context_(context) {
  const texts::Texts english(texts::kEnglish);
  for (const texts::TextId id : kQtTexts) ids_.emplace(english(id), id);
}

// The programs have no texts of their own here, so the context need not be looked at.
QString QtTexts::translate(const char*, const char* text, const char*, int) const {
  if (context_.LanguageOffset == texts::kEnglish || text == nullptr) return {};
  const auto found = ids_.find(text);
  return found == ids_.end() ? QString() : context_.text(found->second);
}

}  // namespace quillon::windows
