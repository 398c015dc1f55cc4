#pragma once

#include <memory>

#include "convert/job.h"
#include "dxf/drawing.h"
#include "eagle/commands.h"
#include "eagle/drawing_area.h"
#include "exact/rule_set.h"
#include "rules/cancel_poll.h"
#include "rules/translation.h"

namespace quillon::convert {

/// What a translation writes with.
struct TranslationOutput {
  eagle::Commands& commands;
  const eagle::DrawingArea& area;
  rules::CancelPoll& cancelled;
};

/// A translation, and the same as exact rules where it is by those.
struct RuleSet {
  std::unique_ptr<rules::Translation> translation;
  exact::RuleSet* exact = nullptr;
  bool wantsParts = false;  ///< by the exact rules
};

/// The exact rules' options as the job has them, for a drawing with this unit (in millimetres).
exact::Options exactOptions(const ConversionJob& job, double drawingUnit);

/// The translation by the job's set of rules. The definitions of the drawing have been read; it,
/// the output and the layers have to outlive the translation. `drawingUnit`: millimetres in a unit
/// of the drawing, for the exact rules.
RuleSet makeTranslation(const ConversionJob& job, const TranslationOutput& output,
                        dxf::Drawing& drawing, rules::LayerNumbers& layers, double drawingUnit);

}  // namespace quillon::convert
