#pragma once

#include <CLI/CLI.hpp>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon::headless {

/// A word that an option takes, and the number that it stands for. Its text is a literal.
struct Word {
  std::string_view text;
  int number = 0;
};

/// An option of a parser, or none that was left out: then nothing happens to it.
class AddedOption {
 public:
  AddedOption() = default;
  explicit AddedOption(CLI::Option* option) : option_(option) {}

  /// What the help calls its value.
  AddedOption valueName(const char* name) const {
    if (option_ != nullptr) option_->type_name(name);
    return *this;
  }
  /// `check` takes the text of a value and says what is wrong with it, or "".
  template <typename Check>
  AddedOption check(const Check& check) const {
    if (option_ != nullptr) option_->check(CLI::Validator(check, ""));
    return *this;
  }
  /// Once parsed: whether the arguments gave it.
  bool isGiven() const { return option_ != nullptr && option_->count() > 0; }
  std::string name() const { return option_ == nullptr ? "" : option_->get_name(); }

 private:
  CLI::Option* option_ = nullptr;
};

/// Adds options to a parser: all of them, or only those that certain arguments may name. To set up
/// all of them takes longer than to convert a small drawing.
///
/// Arguments mean the same either way, if the parser takes them. What it refuses is to be parsed
/// with all options: so are help and version, which only a parser with all options has.
class OptionAdder {
 public:
  /// Adds all options if there are no arguments here. Both have to outlive this object.
  OptionAdder(CLI::App& app, const std::vector<std::string>* arguments)
      : app_(app), arguments_(arguments) {}
  OptionAdder(const OptionAdder&) = delete;
  OptionAdder& operator=(const OptionAdder&) = delete;

  bool addsAll() const { return arguments_ == nullptr; }

  /// Options added from now on are listed below this heading.
  void heading(const char* text) { heading_ = text; }

  /// An option whose value is kept in a variable. `names` as in "-o,--output", or the name of what
  /// stands without an option.
  template <typename Value>
  AddedOption option(const char* names, Value& value, std::string_view help) {
    return mayBeNamed(names) ? added(app_.add_option(names, value, std::string(help)))
                             : AddedOption();
  }
  /// An option whose value is handed to a function.
  template <typename Take>
  AddedOption optionFunction(const char* names, const Take& take, std::string_view help) {
    if (!mayBeNamed(names)) return {};
    return added(app_.add_option_function<std::string>(names, take, std::string(help)));
  }
  /// A switch: a variable, or a function that gets how often it was given.
  template <typename Value>
  AddedOption flag(const char* names, Value&& value, std::string_view help) {
    if (!mayBeNamed(names)) return {};
    return added(app_.add_flag(names, std::forward<Value>(value), std::string(help)));
  }
  /// An option that takes one of a few words. `choices` is how the help lists them.
  template <typename Value>
  AddedOption choice(const char* name, Value& value, std::initializer_list<Word> words,
                     const char* choices, std::string_view help) {
    return mayBeNamed(name) ? choiceOf(name, value, words, choices, help) : AddedOption();
  }
  /// The same for a list of words that stand for the numbers from 0 on.
  template <typename Value, typename List>
  AddedOption numberedChoice(const char* name, Value& value, const List& list,
                             std::string_view help) {
    if (!mayBeNamed(name)) return {};
    std::vector<Word> words;
    std::string choices;
    for (const std::string_view word : list) {
      words.push_back({word, static_cast<int>(words.size())});
      choices.append(choices.empty() ? "" : "|").append(word);
    }
    return choiceOf(name, value, words, choices, help);
  }

 private:
  /// True unless it is certain that no argument is the option of one of these names.
  bool mayBeNamed(std::string_view names) const;
  AddedOption added(CLI::Option* option) const {
    option->group(heading_);
    return AddedOption(option);
  }
  template <typename Value>
  AddedOption choiceOf(const char* name, Value& value, const std::vector<Word>& words,
                       const std::string& choices, std::string_view help) {
    const auto look = [words, choices](std::string& text) {
      return toNumber(text, words, choices);
    };
    CLI::Option* const option = app_.add_option(name, value, std::string(help));
    option->transform(CLI::Validator(look, ""))->type_name(choices);
    return added(option);
  }
  /// Turns a word into its number; says what is wrong with it, or "".
  static std::string toNumber(std::string& text, const std::vector<Word>& words,
                              const std::string& choices);

  CLI::App& app_;
  const std::vector<std::string>* arguments_ = nullptr;  ///< null to add all options
  const char* heading_ = "";
};

}  // namespace quillon::headless
