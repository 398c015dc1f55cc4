#pragma once

#include "eagle/recording.h"

namespace quillon::eagle {

/// Makes everything recorded larger by a factor, then moves it; the factor is positive, both are in
/// the recording's unit. Library parts grow as well; they move with where they are placed.
void placeRecording(Recording& recording, double factor, geometry::Point shift);

}  // namespace quillon::eagle
