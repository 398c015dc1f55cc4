#pragma once

#include <emscripten/val.h>

#include <string>

#include "settings/settings.h"

namespace quillon::web {

/// What the page's user chooses, by the words of the command line; `Options` in engine.d.ts.
struct Options {
  std::string rules;
  std::string target;
  std::string eagle;
  std::string unit;
  std::string scale;
  std::string offsetX;
  std::string offsetY;
  std::string name;
  std::string layer;
  std::string poly;
  std::string polyWidth;
  std::string blocks;
  bool dotted = false;
  bool ellipses = false;
  bool arcToLine = false;
  emscripten::val exact = emscripten::val::object();  ///< texts by the keys of the settings file
};

/// Exact rules for a board in millimetres.
settings::Settings defaultSettings(const texts::Texts& texts);

/// A word that is none of its choices counts as one of them.
settings::Settings settingsOf(const Options& options);
Options optionsOf(const settings::Settings& settings);

/// The number of a target in the settings.
int targetOf(const std::string& word);

/// The words of the exact rules' choices, by their keys.
emscripten::val exactWords();

}  // namespace quillon::web
