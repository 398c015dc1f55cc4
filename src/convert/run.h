#pragma once

#include "convert/conversion.h"
#include "convert/preparation.h"

namespace quillon::convert {

/// Reads the drawing, translates it as it is read, writes the script and, where the job wants it,
/// builds the report; leaves what came out in the conversion's result. The script is in its place
/// only when this returns.
///
/// Throws EndOfConversion after a refusal, ScriptFailure, and what reading and writing throw:
/// RunTimeError, NoStandardLayer, ReadError, WriteError.
void run(Conversion& conversion, PreparedFiles& files);

}  // namespace quillon::convert
