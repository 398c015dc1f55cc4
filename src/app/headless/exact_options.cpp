#include "app/headless/exact_options.h"

#include <cmath>
#include <utility>

#include "app/headless/option_checks.h"
#include "base/number_text.h"
#include "convert/exact_words.h"

namespace quillon::headless {
namespace {

/// A validator for a number within a range.
CLI::Validator within(const convert::Range& range) {
  const auto check = [range](const std::string& text) -> std::string {
    std::string error = checkNumber(text);
    if (!error.empty()) return error;
    const double value = base::numberValue(text);
    if (range.has(value)) return {};
    return "\"" + text + "\" is not between " + base::numberText(range.least) + " and " +
           base::numberText(range.most);
  };
  return {check, ""};
}

/// The words of a choice with their numbers.
template <typename List>
Words numbered(const List& list) {
  Words words;
  for (const std::string_view word : list) words.emplace(word, static_cast<int>(words.size()));
  return words;
}

/// The words as a help text lists them.
template <typename List>
std::string listed(const List& list) {
  std::string text;
  for (const std::string_view word : list) text.append(text.empty() ? "" : "|").append(word);
  return text;
}

}  // namespace

void ExactOptions::addRules() {
  addChoice(app_, "--rules", rules_, {{"classic", 0}, {"exact", 1}}, "classic|exact",
            "Rules: those scripts have always had, or those that show the drawing as a CAD program "
            "does [classic]");
}

void ExactOptions::addOptions() {
  addLengths();
  addChoices();
  addSwitches();
}

CLI::Option* ExactOptions::track(CLI::Option* option) {
  exactOnly_.push_back(option);
  return option->group("With --rules exact");
}

void ExactOptions::addLengths() {
  exact::Options& exact = job_.exact;
  track(app_.add_option("--line-width", exact.lineWidth, "Width of lines without one [0]")
            ->check(within(convert::kWidthRange))
            ->type_name("NUMBER"));
  track(app_.add_option("--fill-width", exact.fillWidth, "Width of the edges of areas [0]")
            ->check(within(convert::kWidthRange))
            ->type_name("NUMBER"));
  track(app_.add_option("--tolerance", exact.curveTolerance,
                        "Largest distance between a curve and its arcs [0.001]")
            ->check(within(convert::kToleranceRange))
            ->type_name("MM"));
  track(app_.add_option("--join", exact.joinTolerance,
                        "Join ends that are no further apart; 0 for none [0.01]")
            ->check(within(convert::kJoinRange))
            ->type_name("MM"));
}

void ExactOptions::addChoices() {
  exact::Options& exact = job_.exact;
  const auto isUnit = [](const std::string& text) -> std::string {
    convert::DrawingUnit unit{};
    if (convert::findDrawingUnit(text, unit)) return {};
    return "\"" + text + "\" is not one of " + convert::drawingUnitWords();
  };
  track(app_.add_option("--drawing-unit", drawingUnit_,
                        "Unit of the drawing's numbers: auto, mm, inch, mil, um, cm, m, ... [auto]")
            ->check(CLI::Validator(isUnit, ""))
            ->type_name("UNIT"));
  const auto choice = [this](const char* name, auto& value, const auto& words, const char* help) {
    addChoice(app_, name, value, numbered(words), listed(words), help);
    track(app_.get_option(name));
  };
  choice("--space", exact.space, convert::kSpaceWords, "What to draw [model]");
  choice("--hatch", exact.hatch, convert::kHatchWords, "What hatch patterns become [lines]");
  choice("--wide-lines", exact.wideLines, convert::kWideLineWords,
         "What polylines with widths become [auto]");
  choice("--line-types", exact.lineTypes, convert::kLineTypeWords,
         "How dashed lines are drawn [solid]");
  choice("--place", exact.place, convert::kPlaceWords,
         "What goes to the origin, before the offsets [keep]");
  track(app_.add_option("--points", points_, "What points become; D is a drill [glyph]")
            ->type_name("glyph|dot|none|hole:D"));
  track(app_.add_option("--holes", holes_,
                        "Circles on these layers of the drawing become holes [none]")
            ->type_name("LAYER[,LAYER...]"));
  track(app_.add_option("--hole-diameters", holeDiameters_,
                        "Which circles, by their diameters in mm [0.2..6.5]")
            ->type_name("MIN..MAX"));
}

void ExactOptions::addSwitches() {
  exact::Options& exact = job_.exact;
  const auto flag = [this](const char* name, bool& value, const char* help) {
    track(app_.add_flag(name, value, help));
  };
  flag("--hidden", exact.hiddenLayers, "Also draw layers that are off or frozen");
  flag("--lineweights", exact.lineWeights, "Lines get the drawing's line weights as widths");
  flag("--closed-as-areas", exact.closedAsAreas, "Closed polylines become areas");
  flag("--fill-always", exact.fillAlways, "Fill areas that the drawing shows as outlines");
  flag("--plain-letters", exact.plainLetters, "Only ASCII letters in texts");
  track(app_.add_flag(
      "--keep-duplicates", [&exact](std::int64_t given) { exact.dropDuplicates = given <= 0; },
      "Draw what the drawing has twice twice"));
}

std::string ExactOptions::finish() {
  if (rules_ == 0) {
    for (const CLI::Option* const option : exactOnly_) {
      if (option->count() > 0) return option->get_name() + " needs --rules exact";
    }
    return {};
  }
  job_.rules = convert::Rules::Exact;
  if (job_.version == convert::kEagle3) return "Exact conversion needs EAGLE 4.1 or later.";
  if (app_.get_option("--unit")->count() == 0) job_.unit = base::Unit::Mm;
  if (job_.exact.joinTolerance == 0.0) job_.exact.chains = false;
  convert::findDrawingUnit(drawingUnit_, job_.drawingUnit);
  if (job_.blocks != convert::kDrawBlocks && job_.targetKind != convert::kBoard &&
      job_.targetKind != convert::kSchematic) {
    return "--rules exact makes parts for --target board and schematic alone";
  }
  return takeHoles();
}

std::string ExactOptions::takeHoles() {
  exact::Options& exact = job_.exact;
  if (!convert::setPoints(exact, points_)) {
    return "--points: \"" + points_ + "\" is not one of glyph|dot|none|hole:D";
  }
  convert::setHoleLayers(exact, holes_);
  if (!holeDiameters_.empty() && !convert::setHoleDiameters(exact, holeDiameters_)) {
    return "--hole-diameters: \"" + holeDiameters_ + "\" is not two numbers such as 0.2..6.5";
  }
  return {};
}

}  // namespace quillon::headless
