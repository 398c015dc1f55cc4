#pragma once

#include <string>

#include "rules/cancel_poll.h"

namespace quillon::classic {

/// Removes MTEXT formatting codes: from the first backslash to the next semicolon, wherever that
/// piece occurs, then again from the first backslash that is left. A code without a semicolon after
/// it stays. False after a cancel, with the text in between.
bool stripFormatCodes(std::string& text, rules::CancelPoll& cancelled);

}  // namespace quillon::classic
