#include "eagle/script_commands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace quillon::eagle {
namespace {

std::string_view wordOf(Property property) {
  constexpr std::array<std::string_view, 7> kWords = {"Size", "Pour",  "Style", "Cap",
                                                      "Font", "Ratio", "Align"};
  return kWords[static_cast<std::size_t>(property)];
}

/// Only the simplest names are taken without quotes for certain.
bool needsQuotes(std::string_view name) {
  return std::any_of(name.begin(), name.end(), [](char c) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    const bool digit = c >= '0' && c <= '9';
    return !letter && !digit && std::string_view("_-./:\\").find(c) == std::string_view::npos;
  });
}

}  // namespace

void ScriptCommands::layer(int number) {
  script_.writeLayer(number);
  script_.count(1);
}

void ScriptCommands::defineLayer(int number, std::string_view name) {
  script_.text("Layer ").text(std::to_string(number)).text(" ").text(name).text(";").endLine();
  script_.count(1);
}

void ScriptCommands::wire(const Wire& wire) {
  switch (wire.kind) {
    case WireKind::Line:
      if (wire.width == 0.0) {
        script_.text("Wire 0.0000000 ");
      } else {
        script_.text("Wire ").number(wire.width).text(" ");
      }
      break;
    case WireKind::FlatArc:
      // Two blanks, unlike the next kind; kept so that scripts stay the same.
      script_.text("Wire  0.00 ");
      break;
    case WireKind::FarArc:
      script_.text("Wire 0.00 ");
      break;
  }
  if (wire.curve == 0.0) return script_.lastPoints(wire.from, wire.to);
  put(wire.from).text(" ");
  putCurve(wire.curve);
  script_.lastPoints(wire.to);
}

void ScriptCommands::arc(const Arc& arc) {
  script_.text(arc.sense == Sense::Clockwise ? "Arc CW " : "Arc CCW ");
  if (arc.width) {
    script_.number(*arc.width).text(" ");
  } else {
    script_.text("0.00 ");
  }
  script_.lastPoints(arc.start, arc.opposite, arc.end);
}

void ScriptCommands::circle(const Circle& circle) {
  switch (circle.kind) {
    case CircleKind::Ring:
      script_.text("Circle ").number(circle.width).text(" ");
      break;
    case CircleKind::RingAsBefore:
      script_.text("Circle ");
      break;
    case CircleKind::Disc:
      script_.text("Circle 0.0 ");
      break;
  }
  script_.lastPoints(circle.centre, circle.onCircle);
}

/// One blank follows the first corner and none the others; EAGLE accepts both. Kept so that scripts
/// stay the same.
void ScriptCommands::area(const Area& area) {
  script_.text("Polygon ").number(area.width).text(" ");
  bool first = true;
  for (const Corner& corner : area.corners) {
    put(corner.at);
    if (first) script_.text(" ");
    first = false;
    putCurve(corner.curve);
  }
  end();
}

/// A backslash at the end of a line joins the next one to it.
void ScriptCommands::polyline(const Polyline& polyline) {
  constexpr std::size_t kPointsPerLine = 20;
  script_.text(polyline.filled ? "Polygon " : "Wire ");
  if (!polyline.signal.empty()) script_.text("'").text(polyline.signal).text("' ");
  script_.number(polyline.width);
  std::uint32_t lines = 1;
  for (std::size_t i = 0; i < polyline.corners.size(); ++i) {
    if (i > 0) putCurveBetween(polyline.corners[i - 1].curve);
    if (i > 0 && i % kPointsPerLine == 0) {
      script_.text(" \\").endLine();
      ++lines;
    } else {
      script_.text(" ");
    }
    put(polyline.corners[i].at);
  }
  script_.text(";").endLine();
  script_.finishCommand(lines);
}

/// The line stays open: each further corner goes on a new line, joined to the previous one by a
/// backslash.
void ScriptCommands::openPolygon(const PolygonStart& start) {
  script_.text("Polygon ").number(start.width);
  script_.text(" '").text(std::to_string(start.number)).text("' ");
  put(start.first).text(" ");
  if (start.second != start.first) put(start.second);
  lastCorner_ = start.second;
  script_.count(1);
}

void ScriptCommands::addToPolygon(Point corner) {
  if (corner == lastCorner_) return;
  script_.text("\\").endLine();
  put(corner);
  lastCorner_ = corner;
  script_.count(1);
}

/// Repeating the last corner closes a polygon. This counts as a command although its line has
/// already been counted; kept so that reports stay the same.
void ScriptCommands::closePolygon() {
  put(lastCorner_);
  end();
}

void ScriptCommands::text(const Text& text) {
  script_.text("Text R").text(std::to_string(text.orientation.degrees)).text(" ");
  putQuoted(text.content);
  script_.text(" ");
  put(text.at);
  end();
}

void ScriptCommands::label(const Label& label) {
  script_.text("Text ");
  putEscaped(label.content);
  script_.text(label.spin ? " S" : " ").text(label.mirrored ? "MR" : "R");
  putDegrees(label.degrees);
  script_.text(" ");
  put(label.at);
  end();
}

void ScriptCommands::part(const Part& part) {
  const std::string_view quote = part.quoted && needsQuotes(part.library) ? "'" : "";
  script_.text("Add ").text(quote).text(part.name).text("@").text(part.library).text(quote);
  script_.text(part.spin ? " SR" : " R");
  putDegrees(part.degrees);
  script_.text(" ");
  if (part.covers.empty()) {
    put(part.at);
  } else {
    script_.pointOfPart(part.at, part.covers);
  }
  end();
}

void ScriptCommands::hole(const Hole& hole) {
  script_.text("Hole ").number(hole.drill).text(" ");
  put(hole.centre);
  end();
}

void ScriptCommands::change(Property property, double value) {
  script_.text("Change ").text(wordOf(property)).text(" ").number(value);
  script_.text(";").endLine().count(1);
}

void ScriptCommands::change(Property property, std::string_view word) {
  script_.text("Change ").text(wordOf(property)).text(" ").text(word);
  script_.text(";").endLine().count(1);
}

void ScriptCommands::edit(std::string_view name, std::string_view extension) {
  script_.endPart();
  script_.text("Edit '").text(name).text(extension).text("';").endLine().count(1);
}

void ScriptCommands::comment(std::string_view text) {
  script_.text("# ").text(text).endLine().count(1);
}

void ScriptCommands::command(std::string_view line) { script_.line(line); }

/// With one decimal, unless that is 0.
void ScriptCommands::putDegrees(double degrees) {
  const auto tenths = static_cast<int>(std::lround(degrees * 10.0));
  script_.text(std::to_string(tenths / 10));
  if (tenths % 10 != 0) script_.text(".").text(std::to_string(tenths % 10));
}

void ScriptCommands::putCurve(double degrees) {
  if (degrees == 0.0) return;
  script_.text(degrees > 0.0 ? "+" : "").number(degrees).text(" ");
}

void ScriptCommands::putCurveBetween(double degrees) {
  if (degrees == 0.0) return;
  script_.text(degrees > 0.0 ? " +" : " ").number(degrees);
}

/// Quoted, with what EAGLE 5 and later would take for an escape or an overline escaped.
void ScriptCommands::putEscaped(std::string_view content) {
  constexpr std::string_view kEndsOverline = " !'\")]}";
  std::string escaped;
  for (std::size_t i = 0; i < content.size(); ++i) {
    const char c = content[i];
    const bool opensOverline = c == '!' && i + 1 < content.size() &&
                               kEndsOverline.find(content[i + 1]) == std::string_view::npos;
    if (c == '\\' || opensOverline) escaped += '\\';
    escaped += c;
  }
  putQuoted(escaped);
}

/// Doubles apostrophes, so that a text cannot close its quotes and inject commands.
void ScriptCommands::putQuoted(std::string_view content) {
  script_.text("'");
  for (std::size_t quote = content.find('\''); quote != std::string_view::npos;
       quote = content.find('\'')) {
    script_.text(content.substr(0, quote + 1)).text("'");
    content.remove_prefix(quote + 1);
  }
  script_.text(content).text("'");
}

void ScriptCommands::end() {
  script_.text(";\r\n");
  script_.finishCommand(1);
}

}  // namespace quillon::eagle
