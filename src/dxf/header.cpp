#include "dxf/header.h"

#include <array>

#include "base/number_text.h"

namespace quillon::dxf {
namespace {

/// The first version that stores drawings in UTF-8.
constexpr double kFirstUtf8Version = 1021.0;

struct HeaderValue {
  double code = 0.0;
  std::string_view text;

  double number() const { return base::numberValue(text); }
};

HeaderValue nextValue(LineReader& reader) {
  HeaderValue value;
  value.code = base::numberValue(reader.readDxfLine(true));
  value.text = reader.readDxfLine(true);
  return value;
}

/// Takes a variable that only some rules need; false when it is another one.
bool takeFurther(std::string_view name, Drawing& drawing, LineReader& reader) {
  struct Number {
    std::string_view name;
    double HeaderValues::*value;
  };
  static constexpr std::array<Number, 3> kNumbers = {{{"$INSUNITS", &HeaderValues::insUnits},
                                                      {"$PDMODE", &HeaderValues::pdMode},
                                                      {"$ATTMODE", &HeaderValues::attMode}}};
  for (const Number& number : kNumbers) {
    if (!base::equalsUpperCased(name, number.name)) continue;
    drawing.header.*number.value = nextValue(reader).number();
    return true;
  }
  if (!base::equalsUpperCased(name, "$DWGCODEPAGE")) return false;
  drawing.header.codePage = drawing.arena.keep(base::trimBlanks(nextValue(reader).text));
  return true;
}

double switchValue(const HeaderValue& value) {
  return value.code == 70.0 && value.number() == 1.0 ? 1.0 : 0.0;
}

bool writesUtf8(std::string_view version) {
  version = base::trimBlanks(version);
  return base::equalsUpperCased(version.substr(0, 2), "AC") &&
         base::numberValue(version.substr(2)) >= kFirstUtf8Version;
}

/// Reads the variables; returns whether $ACADVER implies UTF-8.
bool readVariables(Drawing& drawing, LineReader& reader) {
  bool utf8 = false;
  while (!reader.cancelled() && !reader.atEnd()) {
    const std::string_view line = reader.readDxfLine(true);
    if (base::equalsUpperCased(line, "ENDSEC")) break;
    if (base::equalsUpperCased(line, "$ANGDIR")) {
      drawing.angDir = switchValue(nextValue(reader));
    } else if (base::equalsUpperCased(line, "$FILLMODE")) {
      drawing.fillMode = switchValue(nextValue(reader));
    } else if (base::equalsUpperCased(line, "$LTSCALE")) {
      const HeaderValue value = nextValue(reader);
      // A line-type scale of 0 counts as 1; kept so that scripts stay the same.
      drawing.ltScale = value.code == 40.0 && value.number() != 0.0 ? value.number() : 1.0;
    } else if (base::equalsUpperCased(line, "$PDSIZE")) {
      const HeaderValue value = nextValue(reader);
      if (value.code == 40.0 && value.number() > 0.0) drawing.pointSize = value.number();
      if (value.code == 40.0) drawing.header.pdSize = value.number();
    } else if (base::equalsUpperCased(line, "$ACADVER")) {
      const HeaderValue value = nextValue(reader);
      utf8 = value.code == 1.0 && writesUtf8(value.text);
    } else if (drawing.everyKind && line.starts_with('$')) {
      takeFurther(line, drawing, reader);
    }
  }
  return utf8;
}

}  // namespace

void readHeader(Drawing& drawing, LineReader& reader) {
  // UTF-8 requires both: a version that uses it and a text that is valid throughout.
  const bool utf8 = readVariables(drawing, reader) && reader.source().isUtf8([&reader] {
    return reader.monitor().cancelRequested();
  });
  drawing.encoding = utf8 ? base::Encoding::Utf8 : base::Encoding::Windows1252;
}

}  // namespace quillon::dxf
