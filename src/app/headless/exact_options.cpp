#include "app/headless/exact_options.h"

#include <cmath>
#include <utility>

#include "app/headless/option_checks.h"
#include "base/number_text.h"

namespace quillon::headless {
namespace {

/// A validator for a number within a range.
CLI::Validator within(double least, double most) {
  const auto check = [least, most](const std::string& text) -> std::string {
    std::string error = checkNumber(text);
    if (!error.empty()) return error;
    const double value = base::numberValue(text);
    if (value >= least && value <= most) return {};
    return "\"" + text + "\" is not between " + base::numberText(least) + " and " +
           base::numberText(most);
  };
  return {check, "NUMBER"};
}

constexpr double kWidest = 1e6;

/// The number after a colon, as in "hole:0.8"; below 0 for anything else.
double numberAfter(std::string_view text, std::string_view word) {
  if (!text.starts_with(word)) return -1.0;
  const std::string number(text.substr(word.size()));
  return checkNumber(number).empty() ? base::numberValue(number) : -1.0;
}

}  // namespace

ExactOptions::ExactOptions(CLI::App& app, convert::ConversionJob& job) : app_(app), job_(job) {
  addChoice(app, "--rules", rules_, {{"classic", 0}, {"exact", 1}}, "classic|exact",
            "Rules: those scripts have always had, or those that show the drawing as a CAD program "
            "does [classic]");
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
            ->check(within(0.0, kWidest)));
  track(app_.add_option("--fill-width", exact.fillWidth, "Width of the edges of areas [0]")
            ->check(within(0.0, kWidest)));
  track(app_.add_option("--tolerance", exact.curveTolerance,
                        "Largest distance between a curve and its arcs, in mm [0.001]")
            ->check(within(0.0001, 1.0)));
  track(app_.add_option("--join", exact.joinTolerance,
                        "Join ends that are no further apart, in mm; 0 for none [0.01]")
            ->check(within(0.0, 1.0)));
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
            ->check(CLI::Validator(isUnit, "UNIT")));
  const auto choice = [this](const char* name, auto& value, const Words& words,
                             const std::string& choices, const char* help) {
    addChoice(app_, name, value, words, choices, help);
    track(app_.get_option(name));
  };
  choice("--space", exact.space, {{"model", 0}, {"paper", 1}, {"both", 2}}, "model|paper|both",
         "What to draw [model]");
  choice("--hatch", exact.hatch, {{"lines", 0}, {"border", 1}, {"solid", 2}, {"none", 3}},
         "lines|border|solid|none", "What hatch patterns become [lines]");
  choice("--wide-lines", exact.wideLines, {{"auto", 0}, {"wires", 1}, {"areas", 2}},
         "auto|wires|areas", "What polylines with widths become [auto]");
  choice("--line-types", exact.lineTypes, {{"solid", 0}, {"style", 1}, {"dashes", 2}},
         "solid|style|dashes", "How dashed lines are drawn [solid]");
  choice("--place", exact.place, {{"keep", 0}, {"lower-left", 1}, {"centre", 2}},
         "keep|lower-left|centre", "What goes to the origin, before the offsets [keep]");
  track(app_.add_option("--points", points_, "What points become; D is a drill [glyph]")
            ->type_name("glyph|dot|none|hole:D"));
  track(app_.add_option("--holes", holes_, "Circles on these layers of the drawing become holes")
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
      "--keep-duplicates", [&exact](std::int64_t) { exact.dropDuplicates = false; },
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
  const Words words = {{"glyph", 0}, {"dot", 1}, {"none", 2}};
  const auto found = words.find(points_);
  const double drill = numberAfter(points_, "hole:");
  if (found == words.end() && drill <= 0.0) {
    return "--points: \"" + points_ + "\" is not one of glyph|dot|none|hole:D";
  }
  exact.points = found != words.end() ? static_cast<exact::PointStyle>(found->second)
                                      : exact::PointStyle::Hole;
  exact.pointDrill = drill > 0.0 ? drill : 0.0;
  for (std::size_t start = 0; start < holes_.size();) {
    const std::size_t stop = std::min(holes_.find(',', start), holes_.size());
    const std::string layer = holes_.substr(start, stop - start);
    if (!layer.empty()) {
      exact.holeLayers.push_back(layer);
    }
    start = stop + 1;
  }
  if (holeDiameters_.empty()) return {};
  const std::size_t dots = holeDiameters_.find("..");
  const std::string least = holeDiameters_.substr(0, dots);
  const std::string most =
      dots == std::string::npos ? std::string() : holeDiameters_.substr(dots + 2);
  if (!checkNumber(least).empty() || !checkNumber(most).empty() ||
      !(base::numberValue(least) <= base::numberValue(most))) {
    return "--hole-diameters: \"" + holeDiameters_ + "\" is not two numbers such as 0.2..6.5";
  }
  exact.holeLeast = base::numberValue(least);
  exact.holeMost = base::numberValue(most);
  return {};
}

}  // namespace quillon::headless
