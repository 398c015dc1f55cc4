#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/profile.h"
#include "settings/settings.h"

namespace quillon::settings {

/// Looks up a setting's text by its key; "" for none.
using KeyReader = std::function<std::string(std::string_view key)>;

/// Sets what the exact rules are told from the settings file. A text that is none of the choices,
/// or a number out of its range, leaves the default.
void loadExactKeys(Settings& settings, const KeyReader& read);

/// A text of the settings file that its setting cannot have.
struct RefusedText {
  std::string_view key;
  std::string text;
  std::string used;  ///< the default, which it leaves
};

/// The texts that loadExactKeys does not take.
std::vector<RefusedText> refusedTexts(const KeyReader& read);

/// The keys to save: those that are not at their defaults, and those that the file has already.
std::vector<ProfileEntry> exactEntries(const Settings& settings, const KeyReader& read);

}  // namespace quillon::settings
