#pragma once

#include <memory>

#include "convert/job.h"
#include "dxf/drawing.h"
#include "eagle/commands.h"
#include "eagle/drawing_area.h"
#include "rules/cancel_poll.h"
#include "rules/translation.h"

namespace quillon::convert {

/// What a translation writes with.
struct TranslationOutput {
  eagle::Commands& commands;
  const eagle::DrawingArea& area;
  rules::CancelPoll& cancelled;
};

/// The translation by the job's set of rules. The definitions of the drawing have been read; it,
/// the output and the layers have to outlive the translation.
std::unique_ptr<rules::Translation> makeTranslation(const ConversionJob& job,
                                                    const TranslationOutput& output,
                                                    dxf::Drawing& drawing,
                                                    rules::LayerNumbers& layers);

}  // namespace quillon::convert
