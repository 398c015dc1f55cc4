#pragma once

#include <string>
#include <vector>

#include "exact/canvas.h"

namespace quillon::exact {

/// Average distance of letters in EAGLE's vector font, in heights of capitals. Guessed.
inline constexpr double kVectorFontWidth = 0.85;

/// How the letters of a text run in the coordinates of an entity.
struct Lettering {
  Point along;               ///< towards the next letter, length 1
  Point up;                  ///< towards the tops of the letters, length 1
  double widthFactor = 1.0;  ///< of the letters, in the drawing
};

/// Sets the lines of one text in the way of EAGLE: its angles, mirroring and alignment. A change
/// that the text suffers is noted once, however many lines it has.
class TextSetter {
 public:
  TextSetter(const Item& item, Canvas& canvas, const Affine& map, const Lettering& lettering);

  struct Line {
    std::string content;  ///< in the encoding of the drawing, not empty
    Point at;             ///< in the coordinates of the entity
    double height = 0.0;  ///< likewise
    Columns columns = Columns::Left;
    Rows rows = Rows::Bottom;
  };
  void draw(Line line);

  /// What else the text suffers; noted with the first line that is drawn.
  void change(LossRule rule, double measure = 0.0) { pending_.push_back({rule, measure}); }

  /// Lines are turned over one by one, so that they can be read: the lowest line must be drawn
  /// where the first one would be.
  bool turnsLinesOver() const { return turnsOver_; }

 private:
  void setFreely();
  void setByQuarters();
  Point lowerLeft(const TextLine& line);
  void note(LossRule rule, Point at, double measure = 0.0);

  const Item& item_;
  Canvas& canvas_;
  Affine map_;
  Point along_;  ///< in the script, length 1
  Point up_;     ///< square to along_, length 1
  double heightFactor_ = 0.0;
  double angle_ = 0.0;
  bool mirrored_ = false;
  bool spin_ = false;
  bool swapsColumns_ = false;
  bool swapsRows_ = false;
  bool turnsOver_ = false;
  struct Change {
    LossRule rule;
    double measure;
  };
  std::vector<Change> pending_;
  std::vector<LossRule> noted_;
};

}  // namespace quillon::exact
