#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "convert/driver.h"
#include "convert/held_drawing.h"
#include "preview/scene.h"
#include "workbench/frame.h"

namespace quillon::workbench {

/// What a conversion would come to: all but its script. Lengths are those of the result's script,
/// or of the scene in millimetres, as their types say.
struct Reading {
  convert::ConversionJob job;
  convert::ConversionResult result;             ///< without its recording
  std::vector<convert::Message> messages;       ///< told by the conversion
  std::shared_ptr<const preview::Scene> scene;  ///< null where nothing could be drawn
  Frame frame;                                  ///< from the script's points to the scene's

  bool isWhole() const { return result.outcome == convert::Outcome::Converted; }
};

/// True ends a conversion that nobody waits for any more. Asked from the thread of the conversion.
using Cancelled = std::function<bool()>;

/// Converts a drawing without a script. Nothing is asked and no file is written; a limit or an
/// error ends the reading with a message. Throws what only faults of the program throw.
Reading readResult(convert::HeldDrawing& drawing, const convert::ConversionJob& job,
                   const convert::Surroundings& surroundings, const Cancelled& cancelled);

/// The whole drawing, as a CAD program shows it: by the exact rules, in its own unit, on all layers
/// that are not off. Its scene is where, and as large as, the result shows the drawing; none where
/// the result has none.
Reading readDrawing(convert::HeldDrawing& drawing, const Reading& result,
                    const convert::Surroundings& surroundings, const Cancelled& cancelled);

/// True when the whole drawing that goes with one result goes with the other one too, as long as
/// both are of the same file.
bool haveSameDrawing(const Reading& a, const Reading& b);

/// Millimetres that a unit of the drawing's numbers is taken for, without the job's scale.
double unitTaken(const Reading& reading);

}  // namespace quillon::workbench
