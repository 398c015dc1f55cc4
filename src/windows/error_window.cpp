#include "windows/error_window.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPrinterInfo>

#include "errors/protocol.h"
#include "files/paths.h"
#include "windows/content_area.h"
#include "windows/print_protocol.h"
#include "windows/question.h"
#include "windows/screen_fit.h"
#include "windows/shell.h"

namespace quillon::windows {
namespace {

using texts::TextId;

// The captions are German in English too, as users know them; the tool tips explain them.
constexpr std::array<const char*, 3> kProtocolCaptions = {"&Speichern", "&EMail", "&Drucken"};
constexpr std::array<const char*, 4> kContinueCaptions = {
    "Befehl wieder&holen", "Fortsetzen mit &nächsten Befehl", "&Prozedur verlassen",
    "Programm &beenden"};
constexpr texts::TextRow kProtocolTips =
    texts::textRow(TextId::ErrorTipSave, TextId::ErrorTipPrint);
static_assert(kProtocolTips.size() == kProtocolCaptions.size());
constexpr texts::TextRow kContinueTips = texts::textRow(TextId::ErrorTipRetry, TextId::ErrorTipEnd);
static_assert(kContinueTips.size() == kContinueCaptions.size());
constexpr const char* kMailNotice =
    "Es wird jetzt Ihr Standard-Email-Programm aufgerufen. Die Fehlerbeschreibung sowie das "
    "Fehlerprotokoll\n"
    "wurden zu Ihrer Bequemlichkeit in die Zwischenablage kopiert.\n"
    "Bitte fügen Sie den Inhalt der Zwischenablage in Ihre Email ein, indem Sie in Ihrem "
    "Email-Programm\n"
    "die Tasten [Strg] und [Einfg] gleichzeitig betätigen. Alternativ können Sie den Inhalt in die "
    "EMail\n"
    "einfügen, indem Sie den Befehl 'Einfügen' aus dem Menü 'Bearbeiten' ausführen.";

bool allows(unsigned allowed, int continuation) { return (allowed >> continuation & 1U) != 0; }

/// What closing the window means: leave the procedure, or the closest allowed choice.
errors::Continuation mildest(unsigned allowed) {
  for (const errors::Continuation choice :
       {errors::kLeave, errors::kResume, errors::kEnd, errors::kRetry}) {
    if (allows(allowed, choice)) return choice;
  }
  return errors::kLeave;
}

QLabel* makeLabel(QWidget* parent, const QString& name, const QString& text) {
  auto* const label = new QLabel(text, parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace

ErrorWindow::ErrorWindow(const AppContext& context, const errors::ProgramIdentity& program,
                         const errors::FaultReport& report, QWidget* parent)
    : QDialog(parent),
      context_(context),
      program_(program),
      report_(report),
      choice_(mildest(report.allowed)) {
  setObjectName("frmError");
  setWindowTitle(toQt(report.caption));
  auto* const layout = new QVBoxLayout(this);
  auto* const contents = new ContentArea(makeContents(), this);
  layout->addWidget(contents, 1);
  makeButtons(*layout);
  constexpr int kColumns = 90;
  const int width = fontMetrics().averageCharWidth() * kColumns;
  const int buttons = sizeHint().height() - contents->sizeHint().height();
  resize(width, buttons + contents->heightNeeded(width));
}

QWidget* ErrorWindow::makeContents() {
  auto* const contents = new QWidget(this);
  auto* const layout = new QVBoxLayout(contents);
  makeFault(*layout);
  makeCallStack(*layout);
  return contents;
}

QGroupBox* ErrorWindow::makeFrame(const char* name, const QString& caption) {
  auto* const frame = new QGroupBox(caption, this);
  frame->setObjectName(name);
  return frame;
}

void ErrorWindow::makeFault(QVBoxLayout& layout) {
  QGroupBox* const frame = makeFrame("framFehler", toQt(errors::kFaultFrame));
  auto* const grid = new QGridLayout(frame);
  for (int i = 0; i < static_cast<int>(errors::kFaultTitles.size()); ++i) {
    const auto index = static_cast<std::size_t>(i);
    const QString number = QString::number(i);
    grid->addWidget(makeLabel(frame, "lblErrTitel_" + number, toQt(errors::kFaultTitles[index])), i,
                    0);
    grid->addWidget(makeLabel(frame, "lblError_" + number, toQt(report_.values[index])), i, 1);
  }
  grid->setColumnStretch(1, 1);
  layout.addWidget(frame);
  QGroupBox* const comment = makeFrame("framComment", {});
  auto* const lines = new QVBoxLayout(comment);
  QLabel* const text = makeLabel(comment, "lblComment", toQt(report_.fault.description));
  text->setWordWrap(true);
  elideToLines(*text);
  lines->addWidget(text);
  layout.addWidget(comment);
}

void ErrorWindow::makeCallStack(QVBoxLayout& layout) {
  QGroupBox* const frame = makeFrame("framCallStack", toQt(errors::kCallStackFrame));
  auto* const list = new QListWidget(frame);
  list->setObjectName("lstCallStack");
  for (std::size_t i = 0; i < report_.callStack.size(); ++i) {
    list->addItem(toQt(errors::entryText(report_.callStack.entry(i))));
  }
  auto* const lines = new QVBoxLayout(frame);
  lines->addWidget(list);
  layout.addWidget(frame, 1);
  if (program_.folder.empty()) return;
  const std::string file = files::fromPath(program_.traceFile());
  QLabel* const notice = makeLabel(
      this, "lblTrace", context_.text(TextId::ErrorCallsRecorded, {file, program_.supportAddress}));
  notice->setWordWrap(true);
  elideToLines(*notice);
  layout.addWidget(notice);
}

QPushButton* ErrorWindow::makeButton(const char* name, const char* caption, TextId toolTip) {
  auto* const button = new QPushButton(QString::fromUtf8(caption), this);
  button->setObjectName(name);
  button->setToolTip(context_.text(toolTip));
  return button;
}

void ErrorWindow::makeButtons(QVBoxLayout& layout) {
  QGroupBox* const protocol = makeFrame("framProtocol", "Fehlerprotokoll ...");
  auto* const row = new QHBoxLayout(protocol);
  using Action = void (ErrorWindow::*)();
  constexpr std::array<Action, 3> kActions = {&ErrorWindow::save, &ErrorWindow::mail,
                                              &ErrorWindow::print};
  constexpr std::array<const char*, 3> kNames = {"cmdProtocol_0", "cmdProtocol_1", "cmdProtocol_2"};
  for (std::size_t i = 0; i < kActions.size(); ++i) {
    QPushButton* const button = makeButton(kNames[i], kProtocolCaptions[i], kProtocolTips[i]);
    connect(button, &QPushButton::clicked, this, [this, action = kActions[i]] { guarded(action); });
    row->addWidget(button);
  }
  row->addStretch();
  layout.addWidget(protocol);
  QGroupBox* const goOn = makeFrame("framContinue", "Weiterer Programmablauf...");
  auto* const grid = new QGridLayout(goOn);
  constexpr std::array<const char*, 4> kContinueNames = {"cmdContinue_0", "cmdContinue_1",
                                                         "cmdContinue_2", "cmdContinue_3"};
  for (int i = 0; i < static_cast<int>(kContinueNames.size()); ++i) {
    const auto index = static_cast<std::size_t>(i);
    QPushButton* const button =
        makeButton(kContinueNames[index], kContinueCaptions[index], kContinueTips[index]);
    button->setEnabled(allows(report_.allowed, i));
    connect(button, &QPushButton::clicked, this, [this, i] {
      choice_ = static_cast<errors::Continuation>(i);
      accept();
    });
    grid->addWidget(button, i / 2, i % 2);
    if (i == choice_) button->setDefault(true);
  }
  layout.addWidget(goOn);
}

void ErrorWindow::guarded(void (ErrorWindow::*action)()) {
  try {
    (this->*action)();
  } catch (const std::exception& error) {
    QMessageBox::warning(this, windowTitle(), toQt(error.what()));
  }
}

void ErrorWindow::save() {
  const std::filesystem::path file = program_.protocolFile();
  const QString path = toQt(files::fromPath(file));
  if (!files::isMissing(file) &&
      askQuestion(context_, this, windowTitle(), "Vorhandene Datei '" + path + "' überschreiben ?",
                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes) {
    return;
  }
  // On failure just leave out the confirmation; the window stays open for another try.
  if (!errors::saveProtocol(program_, report_.protocol())) return;
  QMessageBox::information(this, windowTitle(),
                           "Das Fehlerprotokoll wurde in die Datei '" + path + "' geschrieben !");
}

void ErrorWindow::mail() {
  QGuiApplication::clipboard()->setText(toQt(report_.protocol()));
  QMessageBox::information(this, windowTitle(), QString::fromUtf8(kMailNotice));
  ShellRequest request;
  request.file = toQt("mailto:" + program_.supportAddress);
  request.operation = "Open";
  ShellEx(context_, request, this);
}

void ErrorWindow::print() {
  if (QPrinterInfo::defaultPrinter().isNull()) {
    QMessageBox::warning(this, windowTitle(), context_.text(TextId::NoPrinter));
    return;
  }
  QPrinter printer(QPrinterInfo::defaultPrinter());
  printProtocol(toQt(report_.protocol()), printer);
}

}  // namespace quillon::windows
