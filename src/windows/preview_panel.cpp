#include "windows/preview_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <QTabBar>
#include <QVBoxLayout>
#include <array>
#include <initializer_list>
#include <optional>

#include "base/quotable.h"
#include "windows/layer_colours.h"
#include "windows/named_widget.h"
#include "windows/picture_bar.h"
#include "windows/picture_output.h"
#include "windows/trap.h"
#include "workbench/picture_text.h"

namespace quillon::windows {
namespace {

using texts::TextId;
using workbench::Offer;

struct ModeTexts {
  const char* name;
  TextId caption;
  TextId tip;
};
constexpr std::array<ModeTexts, 3> kModes = {{
    {"btnViewResult", TextId::ViewResult, TextId::ViewResultTip},
    {"btnViewDrawing", TextId::ViewDrawing, TextId::ViewDrawingTip},
    {"btnViewBoth", TextId::ViewBoth, TextId::ViewBothTip},
}};

}  // namespace

PreviewPanel::PreviewPanel(AppContext& context, QWidget* parent)
    : QWidget(parent),
      context_(context),
      modes_(new QButtonGroup(this)),
      view_(makeNamed<PictureView>(*this, "picView")),
      message_(makeNamed<QLabel>(*this, "labPreviewMessage")),
      size_(makeNamed<QLabel>(*this, "labSize")),
      pointer_(makeNamed<QLabel>(*this, "labPointer")),
      unit_(makeNamed<QLabel>(*this, "labDrawingUnit")),
      hints_(new HintList(context, this)),
      tabs_(makeNamed<QTabWidget>(*this, "tabPreview")),
      layers_(new SceneLayers(context, this)),
      assignmentPage_(new QWidget(this)),
      layerFile_(makeNamed<PathLabel>(*assignmentPage_, "labAssignmentFile")),
      assignment_(new AssignmentList(context, assignmentPage_)),
      losses_(new LossList(context, this)),
      splitter_(new QSplitter(Qt::Vertical, this)) {
  setObjectName("fraPreview");
  splitter_->setObjectName("splPreview");
  message_->setWordWrap(true);
  message_->setTextFormat(Qt::PlainText);
  for (QLabel* const label : {size_, unit_}) {
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  pointer_->setTextFormat(Qt::PlainText);
  makeBar();
  layOut();
  connectParts();
  modes_->button(0)->setChecked(true);
  addShortcuts();
  followPalette();
  showNothing();
}

std::vector<QWidget*> PreviewPanel::controls() const {
  std::vector<QWidget*> controls;
  for (QAbstractButton* const mode : modes_->buttons()) controls.push_back(mode);
  controls.insert(controls.end(), {fit_, measure_, save_, print_, view_, tabs_});
  return controls;
}

QToolButton* PreviewPanel::addTool(const char* name, void (PreviewPanel::*action)()) {
  auto* const tool = makeNamed<QToolButton>(*this, name);
  tool->setFocusPolicy(Qt::StrongFocus);
  connect(tool, &QToolButton::clicked, this,
          trapped(context_, kModule, name, [this, action] { (this->*action)(); }));
  return tool;
}

void PreviewPanel::followPalette() { view_->setTheme(themeOf(palette())); }

void PreviewPanel::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    followPalette();
    showFacts();
  }
  QWidget::changeEvent(event);
}

void PreviewPanel::makeBar() {
  int id = 0;
  for (const ModeTexts& mode : kModes) {
    auto* const tool = makeNamed<QToolButton>(*this, mode.name);
    tool->setFocusPolicy(Qt::StrongFocus);
    tool->setCheckable(true);
    modes_->addButton(tool, id++);
  }
  fit_ = addTool("btnFit", &PreviewPanel::fit);
  measure_ = addTool("btnMeasure", &PreviewPanel::measure);
  measure_->setCheckable(true);
  save_ = addTool("btnSavePicture", &PreviewPanel::savePicture);
  print_ = addTool("btnPrintPicture", &PreviewPanel::printPicture);
}

void PreviewPanel::layOut() {
  auto* const bar = new PictureBar(this);
  for (QAbstractButton* const mode : modes_->buttons()) bar->addLeft(mode);
  for (QToolButton* const tool : {fit_, measure_, save_, print_}) bar->addRight(tool);
  auto* const facts = new QHBoxLayout;
  facts->addWidget(size_, 1);
  facts->addWidget(pointer_);
  auto* const picture = new QWidget(this);
  auto* const upper = new QVBoxLayout(picture);
  upper->setContentsMargins(0, 0, 0, 0);
  upper->addWidget(bar);
  upper->addWidget(view_, 1);
  upper->addWidget(message_);
  upper->addLayout(facts);
  upper->addWidget(unit_);
  upper->addWidget(hints_);
  auto* const assignment = new QVBoxLayout(assignmentPage_);
  assignment->setContentsMargins(0, 0, 0, 0);
  assignment->addWidget(assignment_, 1);
  assignment->addWidget(layerFile_);
  tabs_->addTab(layers_, QString());
  tabs_->addTab(assignmentPage_, QString());
  tabs_->addTab(losses_, QString());
  splitter_->addWidget(picture);
  splitter_->addWidget(tabs_);
  splitter_->setStretchFactor(0, 1);
  splitter_->setCollapsible(0, false);
  constexpr int kHighPicture = 500;
  constexpr int kHighLists = 150;
  splitter_->setSizes({kHighPicture, kHighLists});
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(splitter_);
  // A long line must not widen the window.
  for (QLabel* const label : {message_, size_, pointer_, unit_}) {
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  }
  pointer_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void PreviewPanel::connectParts() {
  connect(modes_, &QButtonGroup::idClicked, this, [this](int mode) {
    attempt(context_, kModule, "modes_Click", [this, mode] { chooseMode(mode); });
  });
  // Some styles hardly show which one is pressed.
  connect(modes_, &QButtonGroup::idToggled, this, [this](int mode, bool isChosen) {
    QFont font = this->font();
    font.setBold(isChosen);
    modes_->button(mode)->setFont(font);
  });
  hints_->onTaken = [this](const workbench::Hint& hint) { takeHint(hint); };
  layers_->onToggled = [this](int layer, bool shown) { view_->setLayerVisible(layer, shown); };
  losses_->onChosen = [this](const workbench::LossRow& loss) { showLoss(loss); };
  assignment_->onAssigned = [this](const std::string& name, const std::string& entry) {
    if (onAssigned) onAssigned(name, entry);
  };
  assignment_->onAreas = [this](const std::string& name, bool areas) {
    if (onAreas) onAreas(name, areas);
  };
  connectPicture();
}

/// What the picture calls has to report its own faults.
void PreviewPanel::connectPicture() {
  view_->onPointerMoved = [this](QPointF place) {
    attempt(context_, "picView", "pointerMoved", [this, place] { showPointer(place); });
  };
  view_->onPointerLeft = trapped(context_, "picView", "pointerLeft", [this] {
    if (!view_->isMeasured()) pointer_->clear();
  });
  view_->onMeasured = [this](QPointF from, QPointF to) {
    attempt(context_, "picView", "measured", [this, from, to] {
      const texts::Texts texts = context_.texts();
      pointer_->setText(toQt(workbench::distanceText(pointOf(from), pointOf(to), texts)));
    });
  };
  view_->onMeasuringEnded =
      trapped(context_, "picView", "measuringEnded", [this] { measure_->setChecked(false); });
  view_->onMarkClicked = [this](int mark) {
    attempt(context_, "picView", "markClicked",
            [this, mark] { losses_->choose(markedRows_.at(static_cast<std::size_t>(mark))); });
  };
}

void PreviewPanel::addShortcuts() {
  const auto add = [this](const QKeySequence& keys, const std::function<void()>& action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this,
            trapped(context_, kModule, "shortcut", action));
  };
  for (int mode = 0; mode < static_cast<int>(kModes.size()); ++mode) {
    add(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + mode)),
        [this, mode] { modes_->button(mode)->click(); });
  }
  add(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { fit_->click(); });
  add(QKeySequence(Qt::CTRL | Qt::Key_M), [this] { measure_->click(); });
}

void PreviewPanel::loadResources() {
  for (std::size_t i = 0; i < kModes.size(); ++i) {
    QAbstractButton* const button = modes_->button(static_cast<int>(i));
    button->setText(context_.text(kModes[i].caption));
    button->setToolTip(context_.text(kModes[i].tip));
  }
  fit_->setText(context_.text(TextId::ViewFit));
  fit_->setToolTip(context_.text(TextId::ViewFitTip));
  measure_->setText(context_.text(TextId::ViewMeasure));
  measure_->setToolTip(context_.text(TextId::ViewMeasureTip));
  save_->setText(context_.text(TextId::ViewSave));
  print_->setText(context_.text(TextId::ViewPrint));
  view_->setAccessibleName(context_.text(TextId::PictureName));
  tabs_->setAccessibleName(context_.text(TextId::PreviewDetails));
  tabs_->tabBar()->setAccessibleName(tabs_->accessibleName());
  tabs_->setTabText(0, context_.text(TextId::TabLayers));
  tabs_->setTabText(1, context_.text(TextId::TabAssignment));
  layers_->loadResources();
  assignment_->loadResources();
  losses_->loadResources();
  showFacts();
  fillAssignments();
}

void PreviewPanel::chooseMode(int mode) { view_->setMode(static_cast<PictureMode>(mode)); }

void PreviewPanel::measure() {
  view_->setMeasuring(measure_->isChecked());
  view_->setFocus();
}

void PreviewPanel::showPointer(QPointF place) {
  if (view_->isMeasured()) return;  // the distance stays until the next click
  pointer_->setText(toQt(workbench::placeText(pointOf(place))));
}

void PreviewPanel::showNothing() {
  picture_ = {};
  view_->setScenes({});
  showFacts();
  fillAssignments();
  letTake(true);
}

void PreviewPanel::showWorking() {
  message_->setText(context_.text(TextId::PictureWorking));
  message_->show();
  letTake(false);
}

/// What is offered, listed and assigned belongs to the drawing that is shown.
void PreviewPanel::letTake(bool isAllowed) {
  for (QWidget* const part : std::initializer_list<QWidget*>{hints_, layers_, assignment_, losses_})
    part->setEnabled(isAllowed);
}

void PreviewPanel::showPicture(const LivePicture& picture) {
  LivePicture shown = picture;
  const bool another = picture.path != picture_.path;
  if (!shown.isComplete && !another && shown.drawing == nullptr && shown.result != nullptr &&
      picture_.result != nullptr && workbench::haveSameDrawing(*shown.result, *picture_.result)) {
    shown.drawing = picture_.drawing;
  }
  picture_ = std::move(shown);
  letTake(true);
  PictureScenes scenes;
  if (picture_.result) scenes.result = picture_.result->scene;
  if (picture_.drawing) scenes.drawing = picture_.drawing->scene;
  scenes.differences = picture_.differences;
  view_->setScenes(scenes);
  if (another) view_->fit();
  showFacts();
}

/// Everything beside the picture.
void PreviewPanel::showFacts() {
  const texts::Texts texts = context_.texts();
  const workbench::Reading* const result = picture_.result.get();
  const workbench::Reading* const drawing = picture_.drawing.get();
  const bool any = result != nullptr && result->isWhole();
  message_->setText(noteOf());
  message_->setVisible(!message_->text().isEmpty());
  const preview::Scene* const scene = any ? result->scene.get() : nullptr;
  size_->setText(scene == nullptr ? QString() : toQt(workbench::sizeText(scene->bounds())));
  const bool hasUnitHint = any && workbench::namesAnotherUnit(*result, drawing);
  unit_->setText(any ? toQt(workbench::unitText(*result, drawing, texts)) : QString());
  unit_->setVisible(any && !hasUnitHint);
  hints_->showHints(any ? workbench::hintsOf(*result, drawing, texts)
                        : std::vector<workbench::Hint>());
  QWidget* before = view_;
  for (QPushButton* const button : hints_->findChildren<QPushButton*>()) {
    setTabOrder(before, button);
    before = button;
  }
  layers_->showScene(scene, any ? result->job.targetKind : 0, view_->theme());
  for (int layer = 0; layer < 256; ++layer) view_->setLayerVisible(layer, layers_->isShown(layer));
  const std::uint64_t lost = any ? workbench::lossCount(*result) : 0;
  losses_->showLosses(any ? workbench::lossRows(*result, texts) : std::vector<workbench::LossRow>(),
                      lost);
  std::vector<QPointF> marks;
  markedRows_.clear();
  for (std::size_t i = 0; i < losses_->rows().size(); ++i) {
    const std::optional<geometry::Point>& at = losses_->rows()[i].at;
    if (!at) continue;
    marks.push_back(qtPoint(*at));
    markedRows_.push_back(static_cast<int>(i));
  }
  view_->setMarks(marks);
  tabs_->setTabText(2, context_.text(TextId::TabLosses, {std::to_string(lost)}));
  view_->setAccessibleDescription(any ? toQt(workbench::pictureText(*result, texts))
                                      : message_->text());
  for (QToolButton* const tool : {fit_, measure_, save_, print_})
    tool->setEnabled(scene != nullptr);
}

QString PreviewPanel::noteOf() const {
  if (picture_.path.empty()) return context_.text(TextId::PictureNoDrawing);
  if (picture_.result == nullptr || !picture_.failure.empty()) return toQt(picture_.failure);
  return toQt(
      workbench::pictureNote(*picture_.result, picture_.differences.get(), context_.texts()));
}

void PreviewPanel::showAssignments(const QString& layerFile) {
  assignmentFile_ = layerFile;
  fillAssignments();
}

void PreviewPanel::fillAssignments() {
  const QString& layerFile = assignmentFile_;
  const auto& names = picture_.layerNames;
  assignment_->offerAreas(picture_.result != nullptr &&
                          picture_.result->job.rules == convert::Rules::Exact);
  assignment_->showLayers(
      names ? workbench::assignedLayers(*names, fromQt(layerFile), context_.texts())
            : std::vector<workbench::AssignedLayer>());
  layerFile_->setPath(layerFile.isEmpty() ? QString()
                                          : context_.text(TextId::AssignmentsSavedIn,
                                                          {base::quotable(fromQt(layerFile))}));
}

void PreviewPanel::takeHint(const workbench::Hint& hint) {
  if (hint.offer != Offer::ShowPlaces) {
    if (onOffer) onOffer(hint.offer);
    return;
  }
  if (places_ != hint.places) nextPlace_ = 0;
  places_ = hint.places;
  if (places_.empty()) return;
  view_->showPlace(qtPoint(places_.at(nextPlace_)));
  nextPlace_ = (nextPlace_ + 1) % places_.size();
}

void PreviewPanel::showLoss(const workbench::LossRow& loss) {
  pointer_->clear();
  message_->setText(toQt(workbench::lossSentence(loss, context_.texts())));
  message_->show();
  if (loss.at) view_->showPlace(qtPoint(*loss.at));
}

void PreviewPanel::savePicture() {
  windows::savePicture(context_, *view_, toQt(picture_.path), this);
}

void PreviewPanel::printPicture() { windows::printPicture(context_, *view_, this); }

}  // namespace quillon::windows
