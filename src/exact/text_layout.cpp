#include "exact/text_layout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "exact/text_codes.h"
#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// Letters whose widths are off by more than this part are named; a factor of 1.1 is not.
constexpr double kWidthTolerance = 0.1 + 1e-9;
/// Degrees; texts turned by more than this are named.
constexpr double kTurnTolerance = 1.0;
/// The cosine between letters and lines from which they count as sheared.
constexpr double kShearTolerance = 1e-6;

/// The layers on which EAGLE shows texts mirrored by itself. Its help names 16 and 22; that the
/// others of the bottom side do the same is guessed.
bool isMirroredByEagle(int layer, const Options& options) {
  if (!options.turnsFreely()) return false;
  if (layer == 16 || layer == 52) return true;
  return layer >= 22 && layer <= 42 && layer % 2 == 0;
}

/// Whether texts can be told to stay upside down. That packages take it is guessed.
bool canStayUpsideDown(const Options& options) { return options.turnsFreely(); }

/// In whole tenths, 0 to 359.9.
double tenthsOf(double degrees) {
  const double tenths = std::round(std::remainder(degrees, 360.0) * 10.0);
  return (tenths < 0.0 ? tenths + 3600.0 : tenths) / 10.0;
}

Columns swapped(Columns columns) {
  if (columns == Columns::Centre) return columns;
  return columns == Columns::Left ? Columns::Right : Columns::Left;
}

Rows swapped(Rows rows) {
  if (rows == Rows::Centre) return rows;
  return rows == Rows::Bottom ? Rows::Top : Rows::Bottom;
}

/// The part of a line's length that lies before its reference point.
double partBefore(Columns columns) {
  if (columns == Columns::Centre) return 0.5;
  return columns == Columns::Left ? 0.0 : 1.0;
}

double partBelow(Rows rows) {
  if (rows == Rows::Centre) return 0.5;
  return rows == Rows::Bottom ? 0.0 : 1.0;
}

}  // namespace

TextSetter::TextSetter(const Item& item, Canvas& canvas, const Affine& map,
                       const Lettering& lettering)
    : item_(item), canvas_(canvas), map_(map) {
  const Point along = map.turn(lettering.along);
  const Point up = map.turn(lettering.up);
  if (!geometry::usable(along) || !geometry::usable(up)) {
    heightFactor_ = std::numeric_limits<double>::quiet_NaN();
    return;
  }
  along_ = geometry::unit(along);
  const double across = geometry::cross(along_, up);
  heightFactor_ = std::fabs(across);
  mirrored_ = across < 0.0;
  up_ = mirrored_ ? -geometry::leftOf(along_) : geometry::leftOf(along_);
  if (!(heightFactor_ > 0.0)) return;
  const double width = lettering.widthFactor * geometry::norm(along) / heightFactor_;
  change(LossRule::TextShapes);
  if (std::fabs(width - 1.0) > kWidthTolerance) change(LossRule::TextWidth, width);
  if (std::fabs(geometry::dot(along_, up)) > kShearTolerance * geometry::norm(up)) {
    change(LossRule::TextSheared);
  }
  canvas.options().turnsFreely() ? setFreely() : setByQuarters();
}

/// Any angle. EAGLE turns a text first and mirrors it about the y axis then. It would turn a text
/// that is upside down over, unless it is told not to.
void TextSetter::setFreely() {
  angle_ = tenthsOf(geometry::directionOf(mirrored_ ? Point{-along_.x, along_.y} : along_));
  spin_ = canStayUpsideDown(canvas_.options()) && angle_ > 90.0 && angle_ <= 270.0;
  if (!isMirroredByEagle(item_.origin.layer, canvas_.options())) return;
  if (!mirrored_) change(LossRule::TextMirroredByLayer);
  mirrored_ = false;
}

/// Quarter turns alone, and all texts can be read: one that is upside down or mirrored is turned
/// over within the box in which it stands.
void TextSetter::setByQuarters() {
  const Point upInDrawing = up_;
  const double direction = geometry::directionOf(along_);
  const double nearest = 90.0 * std::round(direction / 90.0);
  if (std::fabs(direction - nearest) > kTurnTolerance) {
    change(LossRule::TextTurned, std::fabs(direction - nearest));
  }
  if (mirrored_) {
    change(LossRule::TextMirrored);
    swapsRows_ = true;
    mirrored_ = false;
  }
  angle_ = tenthsOf(nearest);
  along_ = geometry::unitVector(angle_);
  up_ = geometry::leftOf(along_);
  const bool isUpsideDown = angle_ >= 180.0;
  const Point upRead = isUpsideDown ? -up_ : up_;
  turnsOver_ = geometry::dot(upRead, upInDrawing) < 0.0;
  // Without alignment, EAGLE's own turning over keeps the box.
  if (!isUpsideDown || canvas_.options().version == Version::Eagle4) return;
  angle_ -= 180.0;
  swapsColumns_ = true;
  swapsRows_ = !swapsRows_;
}

void TextSetter::draw(Line line) {
  TextLine text;
  text.at = map_(line.at);
  text.height = line.height * heightFactor_;
  if (!geometry::usable(text.at) || !geometry::usable(text.height)) {
    return canvas_.lose(item_, LossRule::UnusableNumbers);
  }
  if (!(text.height >= canvas_.measures().resolution)) {
    return canvas_.lose(item_, LossRule::NoSize, text.at);
  }
  for (const Change& change : std::exchange(pending_, {})) {
    note(change.rule, text.at, change.measure);
  }
  if (text.height > canvas_.measures().tallestText) {
    note(LossRule::TextCut, text.at, text.height);
    text.height = canvas_.measures().tallestText;
  }
  text.content = std::move(line.content);
  text.angle = angle_;
  text.mirrored = mirrored_;
  text.spin = spin_;
  text.columns = swapsColumns_ ? swapped(line.columns) : line.columns;
  text.rows = swapsRows_ ? swapped(line.rows) : line.rows;
  if (canvas_.options().version == Version::Eagle4) {
    text.at = lowerLeft(text);
    text.columns = Columns::Left;
    text.rows = Rows::Bottom;
  }
  if (isVariable(text.content)) {
    note(LossRule::TextVariable, text.at);
    text.content.insert(0, 1, ' ');
  }
  canvas_.text(item_, std::move(text));
}

/// Where EAGLE 4, which has no alignment, is to start a line.
Point TextSetter::lowerLeft(const TextLine& line) {
  const TextEncoder encoder(canvas_.drawing(), false);
  const double characters = static_cast<double>(encoder.charactersIn(line.content));
  const double width = kVectorFontWidth * line.height * characters;
  if (line.columns != Columns::Left) note(LossRule::TextEndsReckoned, line.at, width);
  return line.at - along_ * (partBefore(line.columns) * width) -
         up_ * (partBelow(line.rows) * line.height);
}

void TextSetter::note(LossRule rule, Point at, double measure) {
  if (std::find(noted_.begin(), noted_.end(), rule) != noted_.end()) return;
  noted_.push_back(rule);
  canvas_.lose(item_, rule, at, measure);
}

}  // namespace quillon::exact
