#pragma once

#include "app/headless/plan.h"

namespace quillon::headless {

/// True when the script is newer than its drawing. With equal times, the script might be from an
/// older version of the drawing.
bool isUpToDate(const PlannedConversion& planned);

/// Gives a script that was left incomplete by a cancel its drawing's date, so that --newer converts
/// it again.
void dateAsIncomplete(const PlannedConversion& planned);

/// Makes the subfolders of a drawing's results. Where that fails, writing them says so.
void makeFoldersOf(const PlannedConversion& planned);

}  // namespace quillon::headless
