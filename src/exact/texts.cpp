#include "exact/texts.h"

#include <cmath>
#include <string>
#include <utility>

#include "base/number_text.h"
#include "exact/mtext_layout.h"
#include "exact/mtext_reader.h"
#include "exact/text_codes.h"
#include "exact/text_layout.h"
#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

// How far letters such as g reach below the baseline, and how far the middle of capitals is above
// that of all letters, in heights of capitals.
constexpr double kDescender = 0.3;
constexpr double kMiddleShift = 0.15;
/// How far letters are from each other in the fonts of CAD programs, in heights of capitals.
constexpr double kLetterDistance = 0.85;

/// TEXT, ATTRIB and ATTDEF.
struct TextGroups {
  std::string_view value;
  std::string_view tag;
  std::string_view style;
  Point at;
  Point end;  ///< or what else the text is aligned to
  bool hasEnd = false;
  double elevation = 0.0;
  double height = 0.0;
  double angle = 0.0;
  double widthFactor = 1.0;
  double oblique = 0.0;
  int generation = 0;
  int horizontal = 0;
  int vertical = 0;
  int attribute = 0;  ///< flags
};

/// A small number; 0 for any other.
int smallNumber(double number) {
  return number >= 0.0 && number < 256.0 ? static_cast<int>(number) : 0;
}

/// Reads the groups of a text; what an attribute keeps of an MTEXT and of more attributes comes
/// after them, with the same codes.
class TextReader {
 public:
  explicit TextReader(Kind kind)
      // Attributes have a length with the code that stands for this in texts.
      : verticalCode_(kind == Kind::Text ? 73 : 74) {}

  TextGroups read(EntityGroups groups) {
    for (dxf::Group group; groups.next(group);) {
      constexpr int kEmbeddedObject = 101;
      if (group.code == kEmbeddedObject) break;
      if (group.code == 100 && group.value == "AcDbXrecord") break;
      take(group.code, group.value);
    }
    return values_;
  }

 private:
  void take(int code, std::string_view value) {
    const auto number = [value] { return base::numberValue(value); };
    const auto small = [value] { return smallNumber(base::numberValue(value)); };
    if (code == verticalCode_) values_.vertical = small();
    switch (code) {
      case 1:
        values_.value = value;
        break;
      case 2:
        values_.tag = value;
        break;
      case 7:
        values_.style = value;
        break;
      case 10:
        values_.at.x = number();
        break;
      case 20:
        values_.at.y = number();
        break;
      case 30:
        values_.elevation = number();
        break;
      case 11:
        values_.hasEnd = true;
        values_.end.x = number();
        break;
      case 21:
        values_.end.y = number();
        break;
      case 40:
        values_.height = number();
        break;
      case 41:
        values_.widthFactor = number();
        break;
      case 50:
        values_.angle = number();
        break;
      case 51:
        values_.oblique = number();
        break;
      case 70:
        values_.attribute = small();
        break;
      case 71:
        // After the version of an attribute, this and the next one stand for its kind and lock.
        if (!hasVersion_) values_.generation = small();
        break;
      case 72:
        if (!hasVersion_) values_.horizontal = small();
        break;
      case 280:
        hasVersion_ = true;
        break;
      default:
        break;
    }
  }

  int verticalCode_;
  bool hasVersion_ = false;
  TextGroups values_;
};

TextGroups readTextGroups(const Item& item, const Canvas& canvas) {
  TextGroups values = TextReader(item.entity.kind).read(canvas.groupsOf(item));
  values.height = std::fabs(values.height);
  if (!(values.widthFactor > 0.0) || !geometry::usable(values.widthFactor)) {
    values.widthFactor = 1.0;
  }
  const bool isNowhere = values.end == Point{} && values.at != Point{};
  values.hasEnd = values.hasEnd && !isNowhere;
  return values;
}

constexpr int kAligned = 3;
constexpr int kMiddle = 4;
constexpr int kFit = 5;

/// Between two points, one of which may be missing.
bool isBetweenPoints(const TextGroups& values) {
  return (values.horizontal == kAligned || values.horizontal == kFit) && values.hasEnd &&
         values.end != values.at;
}

/// The point, the side of the text that is there, and how far that is above the text's own point.
TextSetter::Line anchored(const TextGroups& values) {
  TextSetter::Line line;
  line.height = values.height;
  line.at = values.at;
  if (values.horizontal == kMiddle) {
    line.columns = Columns::Centre;
    line.rows = Rows::Centre;
  } else if (values.horizontal == 1 || values.horizontal == 2) {
    line.columns = values.horizontal == 1 ? Columns::Centre : Columns::Right;
  } else if (values.horizontal != 0) {
    return line;
  }
  if (values.horizontal != kMiddle) {
    if (values.vertical == 2) line.rows = Rows::Centre;
    if (values.vertical == 3) line.rows = Rows::Top;
  }
  const bool isAligned = values.horizontal != 0 || (values.vertical >= 1 && values.vertical <= 3);
  if (isAligned && values.hasEnd) line.at = values.end;
  return line;
}

double shiftUp(const TextGroups& values) {
  if (values.horizontal == kMiddle) return kMiddleShift;
  const bool hasRows = values.horizontal >= 0 && values.horizontal <= 2;
  return hasRows && values.vertical == 1 ? kDescender : 0.0;
}

Lettering letteringOf(const TextGroups& values) {
  constexpr int kBackwards = 2;
  constexpr int kUpsideDown = 4;
  Lettering lettering;
  lettering.along = isBetweenPoints(values) ? geometry::unit(values.end - values.at)
                                            : geometry::unitVector(values.angle);
  lettering.up = geometry::leftOf(lettering.along);
  if ((values.generation & kBackwards) != 0) lettering.along = -lettering.along;
  if ((values.generation & kUpsideDown) != 0) lettering.up = -lettering.up;
  lettering.widthFactor = values.widthFactor;
  return lettering;
}

/// Between two points, either the height or the width of letters follows from the distance.
void fitBetween(const TextGroups& values, double characters, TextSetter::Line& line,
                TextSetter& setter) {
  const double length = geometry::distance(values.at, values.end);
  const double natural = kLetterDistance * characters;
  if (values.horizontal == kAligned) {
    line.height = length / (natural * values.widthFactor);
    return;
  }
  setter.change(LossRule::TextWidth, length / (natural * line.height));
}

void drawTextLine(const Item& item, const TextGroups& values, std::string_view text,
                  Canvas& canvas) {
  const Affine map = item.objectMap(values.elevation);
  TextEncoder encoder(canvas.drawing(), canvas.options().plainLetters);
  PlainText plain = plainText(text, encoder);
  TextSetter::Line line = anchored(values);
  if (plain.content.empty()) return canvas.lose(item, LossRule::EmptyText, map(line.at));
  const Lettering lettering = letteringOf(values);
  TextSetter setter(item, canvas, map, lettering);
  if (isBetweenPoints(values)) {
    fitBetween(values, static_cast<double>(encoder.charactersIn(plain.content)), line, setter);
  }
  const TextStyle style = canvas.textStyle(values.style);
  if (plain.hasLines) setter.change(LossRule::TextLines);
  if (encoder.hasReplaced()) setter.change(LossRule::CharacterReplaced);
  if (values.oblique != 0.0) setter.change(LossRule::TextOblique, values.oblique);
  if (style.isVertical) setter.change(LossRule::TextVertical);
  line.content = std::move(plain.content);
  line.at = line.at + lettering.up * (shiftUp(values) * line.height);
  setter.draw(std::move(line));
}

void drawMtextGroups(const Item& item, const MtextGroups& found, Canvas& canvas) {
  if (item.depth == Point{}) {
    return drawLines(item, found.text, found.lettering, item.map, canvas, found.changes);
  }
  // From the plane of the letters, whose heights an oblique block shows.
  const Point along = item.map.turn(found.lettering.along) + item.depth * found.rise;
  const Point up = item.map.turn(found.lettering.up) + item.depth * found.riseUp;
  const Point at = item.seen(found.text.at, found.elevation);
  ParagraphText text = found.text;
  text.at = {};
  const Affine plane{along.x, up.x, along.y, up.y, at.x, at.y};
  drawLines(item, text, {{1.0, 0.0}, {0.0, 1.0}}, plane, canvas, found.changes);
}

/// An attribute of several lines has them in an MTEXT of its own.
void drawAttributeValue(const Item& item, const TextGroups& values, Canvas& canvas) {
  EntityGroups groups = canvas.groupsOf(item);
  if (findEmbeddedMtext(groups)) {
    const MtextGroups found = readMtext(item, groups);
    if (!found.text.content.empty()) return drawMtextGroups(item, found, canvas);
  }
  drawTextLine(item, values, values.value, canvas);
}

/// The same with another text.
void drawAttributeText(const Item& item, const TextGroups& values, std::string_view text,
                       Canvas& canvas) {
  EntityGroups groups = canvas.groupsOf(item);
  if (!findEmbeddedMtext(groups)) return drawTextLine(item, values, text, canvas);
  MtextGroups lines = readMtext(item, groups);
  lines.text.content = text;
  drawMtextGroups(item, lines, canvas);
}

constexpr int kAttributeInvisible = 1;
constexpr int kAttributeConstant = 2;

/// Whether attributes with these flags are shown; notes the others.
bool isAttributeShown(const Item& item, int flags, Canvas& canvas) {
  const double mode = canvas.drawing().header.attMode;
  const bool isShown = mode != 0.0 && ((flags & kAttributeInvisible) == 0 || mode == 2.0);
  if (!isShown) canvas.lose(item, LossRule::Invisible);
  return isShown;
}

}  // namespace

void drawText(const Item& item, Canvas& canvas) {
  const TextGroups values = readTextGroups(item, canvas);
  drawTextLine(item, values, values.value, canvas);
}

void drawAttribute(const Item& item, Canvas& canvas) {
  const TextGroups values = readTextGroups(item, canvas);
  if (isAttributeShown(item, values.attribute, canvas)) drawAttributeValue(item, values, canvas);
}

void drawAttributeDefinition(const Item& item, Canvas& canvas, bool isInBlock) {
  const TextGroups values = readTextGroups(item, canvas);
  if (!isInBlock) return drawTextLine(item, values, values.tag, canvas);
  // What the references have for it is an attribute of theirs.
  if ((values.attribute & kAttributeConstant) == 0) return;
  if (isAttributeShown(item, values.attribute, canvas)) drawAttributeValue(item, values, canvas);
}

void drawAttributeDefinition(const Item& item, Canvas& canvas, std::string_view text) {
  const TextGroups values = readTextGroups(item, canvas);
  if (!isAttributeShown(item, values.attribute, canvas)) return;
  const bool isConstant = (values.attribute & kAttributeConstant) != 0;
  isConstant ? drawAttributeValue(item, values, canvas)
             : drawAttributeText(item, values, text, canvas);
}

void drawMtext(const Item& item, Canvas& canvas) {
  drawMtextGroups(item, readMtext(item, canvas.groupsOf(item)), canvas);
}

void drawParagraph(const Item& item, const ParagraphText& text, const Affine& map, Canvas& canvas) {
  const Point along = geometry::unitVector(text.angle);
  drawLines(item, text, {along, geometry::leftOf(along)}, map, canvas);
}

}  // namespace quillon::exact
