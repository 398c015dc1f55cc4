#include "windows/qt_texts.h"

namespace quillon::windows {
namespace {

/// The English texts of these entries are Qt's.
constexpr int kFirstText = 3300;
constexpr int kLastText = 3499;

}  // namespace

QtTexts::QtTexts(const AppContext& context) : context_(context) {
  for (int id = kFirstText; id <= kLastText; ++id) {
    const std::string_view text = texts::loadString(texts::kEnglish + id);
    if (!text.empty()) ids_.emplace(text, id);
  }
}

// Our own texts do not use Qt's translation, so the context does not matter.
QString QtTexts::translate(const char*, const char* text, const char*, int) const {
  if (context_.LanguageOffset == texts::kEnglish || text == nullptr) return {};
  const auto found = ids_.find(text);
  return found == ids_.end() ? QString() : context_.text(found->second);
}

}  // namespace quillon::windows
