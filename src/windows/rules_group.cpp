#include "windows/rules_group.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "base/number_text.h"
#include "convert/exact_words.h"
#include "windows/named_widget.h"
#include "windows/number_edit.h"

namespace quillon::windows {
namespace {

using settings::Settings;
using texts::TextId;

/// The units that a drawing may be said to be in, by their words; the first one is its own.
std::vector<QString> drawingUnits(const AppContext& context) {
  std::vector<QString> units;
  const QStringList words = toQt(convert::drawingUnitWords()).split('|');
  for (const QString& word : words) {
    units.push_back(units.empty() ? context.text(TextId::UnitAuto) : word);
  }
  return units;
}

/// What is offered for points; other holes can be typed.
constexpr const char* kPointWords[] = {"glyph", "dot", "none", "hole:0.8"};

}  // namespace

/// A list, and the setting that it shows.
struct RulesGroup::Choice {
  QLabel* label;
  QComboBox* list;
  TextId caption;
  texts::TextRow entries;  ///< none for units
  int (*get)(const Settings&);
  void (*set)(Settings&, int);
};

struct RulesGroup::Switch {
  QCheckBox* box;
  TextId caption;
  bool exact::Options::*value;
};

struct RulesGroup::Length {
  QLabel* label;
  QLineEdit* field;
  TextId caption;
  double exact::Options::*value;
  convert::Range range;
};

RulesGroup::RulesGroup(AppContext& context, QWidget* parent)
    : QGroupBox(parent),
      context_(context),
      labRules_(makeNamed<QLabel>(*this, "labRules")),
      cboRules_(makeNamed<QComboBox>(*this, "cboRules")),
      unfold_(makeNamed<QToolButton>(*this, "btnUnfoldRules")),
      options_(makeNamed<QWidget>(*this, "fraExactOptions")),
      labPoints_(makeNamed<QLabel>(*options_, "labPoints")),
      points_(makeNamed<QComboBox>(*options_, "cboPoints")),
      labHoles_(makeNamed<QLabel>(*options_, "labHoles")),
      holes_(makeNamed<QLineEdit>(*options_, "txtHoles")),
      labHoleDiameters_(makeNamed<QLabel>(*options_, "labHoleDiameters")),
      holeDiameters_(makeNamed<QLineEdit>(*options_, "txtHoleDiameters")) {
  setObjectName("fraRules");
  cboRules_->addItems({QString(), QString()});
  labRules_->setBuddy(cboRules_);
  unfold_->setAutoRaise(true);
  unfold_->setFocusPolicy(Qt::TabFocus);
  unfold_->setCheckable(true);
  unfold_->setArrowType(Qt::RightArrow);
  unfold_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  points_->setEditable(true);
  points_->setInsertPolicy(QComboBox::NoInsert);
  for (const char* const word : kPointWords) points_->addItem(word, word);
  auto* const grid = new QGridLayout(options_);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setColumnStretch(1, 1);
  addChoices(*grid);
  addTexts(*grid);
  addSwitches(*grid);
  auto* const layout = new QVBoxLayout(this);
  auto* const first = new QHBoxLayout;
  first->addWidget(labRules_);
  first->addWidget(cboRules_, 1);
  first->addWidget(unfold_);
  layout->addLayout(first);
  layout->addWidget(options_);
  options_->hide();
  connect(unfold_, &QToolButton::toggled, this, [this](bool unfolded) {
    unfold_->setArrowType(unfolded ? Qt::DownArrow : Qt::RightArrow);
    options_->setVisible(unfolded);
  });
  connect(cboRules_, &QComboBox::currentIndexChanged, this, [this] { enableOptions(); });
  connect(cboRules_, &QComboBox::activated, this, [this] {
    rules_ = isExact() ? settings::kExactRules : settings::kClassicRules;
    if (onChanged) onChanged();
  });
  for (QLineEdit* const field : options_->findChildren<QLineEdit*>()) {
    // A text that cannot be used makes room for what is used in its place.
    connect(field, &QLineEdit::editingFinished, this, [this] {
      Settings used;
      read(used);
      showSettings(used);
    });
  }
}

void RulesGroup::addChoices(QGridLayout& layout) {
  const auto add = [&](const char* name, TextId caption, texts::TextRow entries,
                       int (*get)(const Settings&), void (*set)(Settings&, int)) {
    auto* const list = makeNamed<QComboBox>(*options_, name);
    auto* const label = new QLabel(options_);
    label->setBuddy(list);
    const int row = layout.rowCount();
    layout.addWidget(label, row, 0);
    layout.addWidget(list, row, 1);
    choices_.push_back({label, list, caption, entries, get, set});
  };
  using exact::Options;
  using texts::textRow;
  add(
      "cboDrawingUnit", TextId::CaptionDrawingUnit, {},
      [](const Settings& s) { return static_cast<int>(s.drawingUnit); },
      [](Settings& s, int i) { s.drawingUnit = static_cast<convert::DrawingUnit>(i); });
  add(
      "cboSpace", TextId::CaptionSpace, textRow(TextId::SpaceModel, TextId::SpaceBoth),
      [](const Settings& s) { return static_cast<int>(s.exact.space); },
      [](Settings& s, int i) { s.exact.space = static_cast<exact::Space>(i); });
  add(
      "cboPlace", TextId::CaptionPlace, textRow(TextId::PlaceKeep, TextId::PlaceCentre),
      [](const Settings& s) { return static_cast<int>(s.exact.place); },
      [](Settings& s, int i) { s.exact.place = static_cast<exact::Place>(i); });
  add(
      "cboHatch", TextId::CaptionHatch, textRow(TextId::HatchLines, TextId::HatchNone),
      [](const Settings& s) { return static_cast<int>(s.exact.hatch); },
      [](Settings& s, int i) { s.exact.hatch = static_cast<exact::HatchStyle>(i); });
  add(
      "cboLineTypes", TextId::CaptionLineTypes,
      textRow(TextId::LineTypesSolid, TextId::LineTypesDashes),
      [](const Settings& s) { return static_cast<int>(s.exact.lineTypes); },
      [](Settings& s, int i) { s.exact.lineTypes = static_cast<exact::LineTypes>(i); });
  add(
      "cboWideLines", TextId::CaptionWideLines,
      textRow(TextId::WideLinesAuto, TextId::WideLinesAreas),
      [](const Settings& s) { return static_cast<int>(s.exact.wideLines); },
      [](Settings& s, int i) { s.exact.wideLines = static_cast<exact::WideLines>(i); });
}

void RulesGroup::addTexts(QGridLayout& layout) {
  const auto put = [&](QLabel* label, QWidget* field) {
    label->setBuddy(field);
    const int row = layout.rowCount();
    layout.addWidget(label, row, 0);
    layout.addWidget(field, row, 1);
  };
  const auto add = [&](const char* name, TextId caption, double exact::Options::*value,
                       const convert::Range& range) {
    auto* const field = makeNamed<NumberEdit>(*options_, name);
    auto* const label = new QLabel(options_);
    put(label, field);
    lengths_.push_back({label, field, caption, value, range});
  };
  using exact::Options;
  add("txtLineWidth", TextId::CaptionLineWidth, &Options::lineWidth, convert::kWidthRange);
  add("txtFillWidth", TextId::CaptionFillWidth, &Options::fillWidth, convert::kWidthRange);
  add("txtTolerance", TextId::CaptionTolerance, &Options::curveTolerance, convert::kToleranceRange);
  add("txtJoin", TextId::CaptionJoin, &Options::joinTolerance, convert::kJoinRange);
  put(labPoints_, points_);
  put(labHoles_, holes_);
  put(labHoleDiameters_, holeDiameters_);
}

void RulesGroup::addSwitches(QGridLayout& layout) {
  const auto add = [&](const char* name, TextId caption, bool exact::Options::*value) {
    auto* const box = makeNamed<QCheckBox>(*options_, name);
    layout.addWidget(box, layout.rowCount(), 0, 1, 2);
    switches_.push_back({box, caption, value});
  };
  using exact::Options;
  add("chkHidden", TextId::CaptionHidden, &Options::hiddenLayers);
  add("chkLineWeights", TextId::CaptionLineWeights, &Options::lineWeights);
  add("chkClosedAreas", TextId::CaptionClosedAreas, &Options::closedAsAreas);
  add("chkFillAlways", TextId::CaptionFillAlways, &Options::fillAlways);
  add("chkPlainLetters", TextId::CaptionPlainLetters, &Options::plainLetters);
  add("chkDropDuplicates", TextId::CaptionDropDuplicates, &Options::dropDuplicates);
}

/// Sets the entries of a list and keeps the choice.
void RulesGroup::refill(QComboBox& list, const std::vector<QString>& entries) {
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const int index = static_cast<int>(i);
    if (index < list.count()) {
      list.setItemText(index, entries[i]);
    } else {
      list.addItem(entries[i]);
    }
  }
}

void RulesGroup::loadResources() {
  labRules_->setText(context_.text(TextId::CaptionRules));
  refill(*cboRules_, {context_.text(TextId::RulesClassic), context_.text(TextId::RulesExact)});
  unfold_->setText(context_.text(TextId::CaptionExactOptions));
  for (const Choice& choice : choices_) {
    choice.label->setText(context_.text(choice.caption));
    std::vector<QString> entries;
    for (const TextId id : choice.entries) entries.push_back(context_.text(id));
    refill(*choice.list, choice.entries.empty() ? drawingUnits(context_) : entries);
  }
  for (const Length& length : lengths_) length.label->setText(context_.text(length.caption));
  for (const Switch& item : switches_) item.box->setText(context_.text(item.caption));
  labPoints_->setText(context_.text(TextId::CaptionPoints));
  const QString points = pointsWord();
  refill(*points_, {context_.text(TextId::PointsGlyph), context_.text(TextId::PointsDot),
                    context_.text(TextId::PointsNone), context_.text(TextId::PointsHole, {"0.8"})});
  showPoints(points);
  labHoles_->setText(context_.text(TextId::CaptionHoles));
  labHoleDiameters_->setText(context_.text(TextId::CaptionHoleDiameters));
  for (QLabel* const label : findChildren<QLabel*>()) {
    if (label->buddy() == nullptr) continue;
    label->buddy()->setAccessibleName(toQt(texts::captionName(fromQt(label->text()))));
  }
}

/// The entries have words of their own; what is typed is one.
QString RulesGroup::pointsWord() const {
  const QString text = points_->currentText();
  const int entry = points_->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
  return entry < 0 ? text : points_->itemData(entry).toString();
}

void RulesGroup::showPoints(const QString& word) {
  const int entry = points_->findData(word);
  points_->setCurrentIndex(entry);
  points_->setEditText(entry < 0 ? word : points_->itemText(entry));
}

void RulesGroup::enableOptions() { options_->setEnabled(isExact()); }

void RulesGroup::showSettings(const Settings& settings) {
  rules_ = settings.rules;
  cboRules_->setCurrentIndex(rules_ == settings::kExactRules ? 1 : 0);
  for (const Choice& choice : choices_) choice.list->setCurrentIndex(choice.get(settings));
  for (const Length& length : lengths_) {
    length.field->setText(toQt(base::numberText(settings.exact.*length.value)));
  }
  for (const Switch& item : switches_) item.box->setChecked(settings.exact.*item.value);
  showPoints(toQt(convert::pointsText(settings.exact)));
  holes_->setText(toQt(convert::holeLayersText(settings.exact)));
  holeDiameters_->setText(toQt(convert::holeDiametersText(settings.exact)));
  enableOptions();
}

void RulesGroup::read(Settings& settings) const {
  settings.rules = rules_;
  for (const Choice& choice : choices_) choice.set(settings, choice.list->currentIndex());
  for (const Length& length : lengths_) {
    const std::string text = fromQt(length.field->text());
    const double value = base::numberValue(text);
    const bool fits = base::isNumber(text) && length.range.has(value);
    if (fits) settings.exact.*length.value = value;
  }
  for (const Switch& item : switches_) settings.exact.*item.value = item.box->isChecked();
  convert::setPoints(settings.exact, fromQt(pointsWord()));
  convert::setHoleLayers(settings.exact, fromQt(holes_->text()));
  convert::setHoleDiameters(settings.exact, fromQt(holeDiameters_->text()));
}

bool RulesGroup::isUnfolded() const { return unfold_->isChecked(); }

void RulesGroup::setUnfolded(bool unfolded) { unfold_->setChecked(unfolded); }

std::vector<QWidget*> RulesGroup::controls() const {
  std::vector<QWidget*> controls = {cboRules_, unfold_};
  for (const Choice& choice : choices_) controls.push_back(choice.list);
  for (const Length& length : lengths_) controls.push_back(length.field);
  controls.insert(controls.end(), {points_, holes_, holeDiameters_});
  for (const Switch& item : switches_) controls.push_back(item.box);
  return controls;
}

}  // namespace quillon::windows
