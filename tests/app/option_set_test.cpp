#include "app/headless/option_set.h"

#include <gtest/gtest.h>

#include <tuple>

#include "app/headless/option_list.h"

namespace quillon::headless {
namespace {

using Strings = std::vector<std::string>;

/// A value that an option takes, by what the help calls its values.
std::string valueFor(const std::string& name) {
  if (name == "NUMBER" || name == "MM") return "0.5";
  if (name == "N" || name == "SIZE") return "7";
  if (name == "UNIT") return "cm";
  if (name == "TEXT-OR-NUMBER") return "21 tPlace";
  if (name == "MIN..MAX") return "1..2";
  return name.substr(0, name.find('|'));
}

/// What a set makes of arguments: what it refuses, or what comes of them.
struct Outcome {
  bool refused = false;
  std::string wrong;
  Options options;
};

Outcome outcomeOf(OptionSet& set, const Strings& arguments) {
  try {
    set.parse(arguments);
  } catch (const CLI::ParseError&) {
    return {true, "", {}};
  }
  std::string wrong = set.finish();
  return {false, std::move(wrong), set.options()};
}

auto valuesOf(const Options& o) {
  return std::tie(o.inputs, o.output, o.name, o.frame, o.report, o.preview, o.previewTheme,
                  o.discardScript, o.job, o.languageOffset, o.jobs, o.limits.lines, o.limits.steps,
                  o.input.file, o.input.pipe, o.keepPartial, o.recursive, o.filesFrom,
                  o.nulSeparated, o.newer, o.config, o.noConfig, o.quiet, o.json);
}

/// Both sets come to the same.
void expectSame(const Strings& arguments) {
  std::string all;
  for (const std::string& argument : arguments) all += argument + " ";
  SCOPED_TRACE(all);
  OptionSet some(arguments);
  OptionSet whole;
  const Outcome ofSome = outcomeOf(some, arguments);
  const Outcome ofWhole = outcomeOf(whole, arguments);
  EXPECT_EQ(ofSome.refused, ofWhole.refused);
  if (ofSome.refused) return;
  EXPECT_EQ(ofSome.wrong, ofWhole.wrong);
  EXPECT_TRUE(valuesOf(ofSome.options) == valuesOf(ofWhole.options));
}

TEST(OptionSet, OfTheArgumentsAloneTakesEachOptionLikeOneOfAll) {
  for (const ListedOption& option : listOptions()) {
    for (const std::string& name : option.names) {
      if (name == "-h" || name == "--help" || name == "--version") continue;
      const bool isLong = name.starts_with("--");
      if (option.value.empty()) {
        expectSame({name, "a.dxf"});
        if (isLong) expectSame({name + "=false", "a.dxf"});
        continue;
      }
      const std::string value = valueFor(option.value);
      expectSame({name, value, "a.dxf", "--rules", "exact"});
      expectSame({"a.dxf", isLong ? name + "=" + value : name + value});
      expectSame({"a.dxf", name});
      expectSame({name, "#", "--quiet"});
    }
  }
}

TEST(OptionSet, OfTheArgumentsAloneTakesThemInAnyForm) {
  for (const Strings& arguments :
       std::vector<Strings>{{},
                            {"-"},
                            {"--"},
                            {"--", "--quiet", "-o"},
                            {"-0oout", "a.dxf"},
                            {"-0", "--files-from", "-"},
                            {"--offset-x", "-5", "a.dxf"},
                            {"--offset-x=-5", "--scale=", "a.dxf"},
                            {"--rule", "exact", "a.dxf"},
                            {"--quiet--json", "a.dxf"},
                            {"---quiet", "a.dxf"},
                            {"--unit", "--unit", "a.dxf"},
                            {"--unit", "mm", "--unit", "mil", "a.dxf"},
                            {"--name", "--force", "a.dxf"},
                            {"a.dxf", "--unknown"},
                            {"a.dxf", "-x"},
                            {"/quiet", "a.dxf"},
                            {"--points", "dot", "a.dxf"},
                            {"--join", "0.1", "--rules", "exact", "--eagle", "3.5", "a.dxf"}}) {
    expectSame(arguments);
  }
}

TEST(OptionSet, TakesWholeNumbersAsDecimalWhateverZeroesTheyStartWith) {
  OptionSet set;
  set.parse({"--jobs", "08", "--max-lines=0100", "--max-steps", "0090", "a.dxf"});
  EXPECT_EQ(set.options().jobs, 8U);
  EXPECT_EQ(set.options().limits.lines, 100U);
  EXPECT_EQ(set.options().limits.steps, 90U);
}

TEST(OptionSet, OfTheArgumentsAloneLeavesHelpAndVersionToOneOfAll) {
  for (const char* const name : {"-h", "--help", "--version"}) {
    const Strings arguments = {name};
    OptionSet some(arguments);
    EXPECT_THROW(some.parse(arguments), CLI::ParseError) << name;
  }
}

TEST(OptionSet, OfTheArgumentsAloneKnowsWhatTheyGive) {
  const Strings arguments = {"a.dxf", "--unit=mm"};
  OptionSet some(arguments);
  some.parse(arguments);
  EXPECT_TRUE(some.isGiven("unit"));
  EXPECT_FALSE(some.isGiven("quiet"));
}

}  // namespace
}  // namespace quillon::headless
