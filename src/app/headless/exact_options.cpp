#include "app/headless/exact_options.h"

#include <cmath>
#include <utility>

#include "app/headless/option_checks.h"
#include "base/number_text.h"
#include "convert/exact_words.h"
#include "texts/string_table.h"

namespace quillon::headless {
namespace {

/// Requires a number within a range.
std::string checkRange(const std::string& text, const convert::Range& range) {
  std::string error = checkNumber(text);
  if (!error.empty()) return error;
  if (range.has(base::numberValue(text))) return {};
  return "\"" + text + "\" is not between " + base::numberText(range.least) + " and " +
         base::numberText(range.most);
}

std::string checkUnit(const std::string& text) {
  convert::DrawingUnit unit{};
  if (convert::findDrawingUnit(text, unit)) return {};
  return "\"" + text + "\" is not one of " + convert::drawingUnitWords();
}

}  // namespace

void ExactOptions::addRules(OptionAdder& adder) {
  adder.choice("--rules", rules_, {{"classic", 0}, {"exact", 1}}, "classic|exact",
               "Rules: those scripts have always had, or those that show the drawing as a CAD "
               "program does [classic]");
}

void ExactOptions::addOptions(OptionAdder& adder) {
  adder.heading("With --rules exact");
  addLengths(adder);
  addChoices(adder);
  addTexts(adder);
  addSwitches(adder);
}

void ExactOptions::addLengths(OptionAdder& adder) {
  const auto length = [this, &adder](const char* name, double& value, const char* help,
                                     const convert::Range& range, const char* valueName) {
    const auto check = [range](const std::string& text) { return checkRange(text, range); };
    track(adder.option(name, value, help).check(check).valueName(valueName));
  };
  exact::Options& exact = job_.exact;
  length("--line-width", exact.lineWidth, "Width of lines without one [0]", convert::kWidthRange,
         "NUMBER");
  length("--fill-width", exact.fillWidth, "Width of the edges of areas [0]", convert::kWidthRange,
         "NUMBER");
  length("--tolerance", exact.curveTolerance,
         "Largest distance between a curve and its arcs [0.001]", convert::kToleranceRange, "MM");
  length("--join", exact.joinTolerance, "Join ends that are no further apart; 0 for none [0.01]",
         convert::kJoinRange, "MM");
}

void ExactOptions::addChoices(OptionAdder& adder) {
  exact::Options& exact = job_.exact;
  track(adder
            .option("--drawing-unit", drawingUnit_,
                    "Unit of the drawing's numbers: auto, mm, inch, mil, um, cm, m, ... [auto]")
            .check(checkUnit)
            .valueName("UNIT"));
  track(adder.numberedChoice("--space", exact.space, convert::kSpaceWords, "What to draw [model]"));
  track(adder.numberedChoice("--hatch", exact.hatch, convert::kHatchWords,
                             "What hatch patterns become [lines]"));
  track(adder.numberedChoice("--wide-lines", exact.wideLines, convert::kWideLineWords,
                             "What polylines with widths become [auto]"));
  track(adder.numberedChoice("--line-types", exact.lineTypes, convert::kLineTypeWords,
                             "How dashed lines are drawn [solid]"));
  track(adder.numberedChoice("--place", exact.place, convert::kPlaceWords,
                             "What goes to the origin, before the offsets [keep]"));
}

void ExactOptions::addTexts(OptionAdder& adder) {
  track(adder.option("--points", points_, "What points become; D is a drill [glyph]")
            .valueName("glyph|dot|none|hole:D"));
  track(
      adder.option("--holes", holes_, "Circles on these layers of the drawing become holes [none]")
          .valueName("LAYER[,LAYER...]"));
  track(adder
            .option("--hole-diameters", holeDiameters_,
                    "Which circles, by their diameters in mm [0.2..6.5]")
            .valueName("MIN..MAX"));
}

void ExactOptions::addSwitches(OptionAdder& adder) {
  exact::Options& exact = job_.exact;
  const auto flag = [this, &adder](const char* name, bool& value, const char* help) {
    track(adder.flag(name, value, help));
  };
  flag("--hidden", exact.hiddenLayers, "Also draw layers that are off or frozen");
  flag("--lineweights", exact.lineWeights, "Lines get the drawing's line weights as widths");
  flag("--closed-as-areas", exact.closedAsAreas, "Closed polylines become areas");
  flag("--fill-always", exact.fillAlways, "Fill areas that the drawing shows as outlines");
  flag("--plain-letters", exact.plainLetters, "Only ASCII letters in texts");
  track(adder.flag(
      "--keep-duplicates", [&exact](std::int64_t given) { exact.dropDuplicates = given <= 0; },
      "Draw what the drawing has twice twice"));
}

std::string ExactOptions::finish(bool unitIsGiven) {
  if (rules_ == 0) {
    for (const AddedOption& option : exactOnly_) {
      if (option.isGiven()) return option.name() + " needs --rules exact";
    }
    return {};
  }
  job_.rules = convert::Rules::Exact;
  if (job_.version == convert::kEagle3) {
    // Errors of the command line are in English.
    return std::string(texts::Texts(texts::kEnglish)(texts::TextId::ExactNeedsEagle4));
  }
  if (!unitIsGiven) job_.unit = base::Unit::Mm;
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
