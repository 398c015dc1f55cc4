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

/// The keys to save: those that are not at their defaults, and those that the file has already.
std::vector<ProfileEntry> exactEntries(const Settings& settings, const KeyReader& read);

}  // namespace quillon::settings
