#pragma once

#include "eagle/commands.h"

namespace quillon::eagle {

/// Passes every command to two listeners, in order.
class Tee final : public Commands {
 public:
  Tee(Commands& first, Commands& second) : first_(first), second_(second) {}

  void layer(int number) override { both(&Commands::layer, number); }
  void defineLayer(int number, std::string_view name) override {
    first_.defineLayer(number, name);
    second_.defineLayer(number, name);
  }
  void wire(const Wire& wire) override { both(&Commands::wire, wire); }
  void arc(const Arc& arc) override { both(&Commands::arc, arc); }
  void circle(const Circle& circle) override { both(&Commands::circle, circle); }
  void area(const Area& area) override { both(&Commands::area, area); }
  void polyline(const Polyline& polyline) override { both(&Commands::polyline, polyline); }
  void openPolygon(const PolygonStart& start) override { both(&Commands::openPolygon, start); }
  void addToPolygon(Point corner) override { both(&Commands::addToPolygon, corner); }
  void closePolygon() override { both(&Commands::closePolygon); }
  void text(const Text& text) override { both(&Commands::text, text); }
  void label(const Label& label) override { both(&Commands::label, label); }
  void part(const Part& part) override { both(&Commands::part, part); }
  void hole(const Hole& hole) override { both(&Commands::hole, hole); }
  void change(Property property, double value) override {
    first_.change(property, value);
    second_.change(property, value);
  }
  void change(Property property, std::string_view word) override {
    first_.change(property, word);
    second_.change(property, word);
  }
  void edit(std::string_view name, std::string_view extension) override {
    both(&Commands::edit, name, extension);
  }
  void beginPart() override { both(&Commands::beginPart); }
  void comment(std::string_view text) override { both(&Commands::comment, text); }
  void command(std::string_view line) override { both(&Commands::command, line); }

 private:
  template <typename... Parameters, typename... Arguments>
  void both(void (Commands::*tell)(Parameters...), const Arguments&... arguments) {
    (first_.*tell)(arguments...);
    (second_.*tell)(arguments...);
  }

  Commands& first_;
  Commands& second_;
};

}  // namespace quillon::eagle
