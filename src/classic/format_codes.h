#pragma once

#include <string>

#include "rules/cancel_poll.h"

namespace quillon::classic {

/// Removes MTEXT formatting codes: everything from the first backslash to the next semicolon,
/// wherever that piece occurs, then again from the next remaining backslash. A code without a
/// semicolon stays. False when cancelled; the text is then half done.
bool stripFormatCodes(std::string& text, rules::CancelPoll& cancelled);

}  // namespace quillon::classic
