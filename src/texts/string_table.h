#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "texts/text_ids.h"

namespace quillon::texts {

inline constexpr int kGerman = 0;
inline constexpr int kEnglish = 10000;

/// The entry of the string table with this id, or "" when there is none. German texts have the id
/// itself, English ones id + 10000; EAGLE's layer names exist once, under the id itself. UTF-8.
std::string_view loadString(int id);
/// An entry by its own id: in German, or as it is in both languages.
inline std::string_view loadString(TextId id) { return loadString(static_cast<int>(id)); }

/// A text with "%1", "%2", … replaced by the arguments.
std::string fillIn(std::string_view text, std::initializer_list<std::string_view> arguments);

/// A caption as a name: without its mnemonic mark and the colon.
std::string captionName(std::string_view caption);

/// The texts of one language.
class Texts {
 public:
  explicit Texts(int languageOffset) : languageOffset_(languageOffset) {}

  int languageOffset() const { return languageOffset_; }
  std::string_view operator()(TextId id) const {
    return loadString(languageOffset_ + static_cast<int>(id));
  }
  std::string operator()(TextId id, std::initializer_list<std::string_view> arguments) const {
    return fillIn((*this)(id), arguments);
  }

 private:
  int languageOffset_;
};

}  // namespace quillon::texts
