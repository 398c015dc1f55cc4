#pragma once

#include "eagle/commands.h"
#include "eagle/script_writer.h"

namespace quillon::eagle {

/// Writes commands as script text in the established spelling. A command with a coordinate outside
/// the drawing area is followed by a comment.
class ScriptCommands final : public Commands {
 public:
  explicit ScriptCommands(ScriptWriter& script) : script_(script) {}

  void layer(int number) override;
  void defineLayer(int number, std::string_view name) override;
  void wire(const Wire& wire) override;
  void arc(const Arc& arc) override;
  void circle(const Circle& circle) override;
  void area(const Area& area) override;
  void polyline(const Polyline& polyline) override;
  void openPolygon(const PolygonStart& start) override;
  void addToPolygon(Point corner) override;
  void closePolygon() override;
  void text(const Text& text) override;
  void label(const Label& label) override;
  void part(const Part& part) override;
  void hole(const Hole& hole) override;
  void change(Property property, double value) override;
  void change(Property property, std::string_view word) override;
  void edit(std::string_view name, std::string_view extension) override;
  void beginPart() override { script_.beginPart(); }
  void comment(std::string_view text) override;
  void command(std::string_view line) override;

 private:
  ScriptWriter& put(Point point) { return script_.formatPoint(point.x, point.y); }
  void putCurve(double degrees);
  void putCurveBetween(double degrees);
  void putDegrees(double degrees);
  void putEscaped(std::string_view content);
  void putQuoted(std::string_view content);
  /// Ends a one-line command.
  void end();

  ScriptWriter& script_;
  Point lastCorner_;  ///< of the open polygon
};

}  // namespace quillon::eagle
