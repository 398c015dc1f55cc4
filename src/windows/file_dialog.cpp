#include "windows/file_dialog.h"

#include <QMessageBox>

#include "windows/system_file_dialog.h"
#include "windows/trap.h"

namespace quillon::windows {
namespace {

constexpr QChar kNul(u'\0');
constexpr qsizetype kLongestName = 512;
constexpr std::uint32_t kDefaultOpenFlags = kReadOnlyBox | kPathMustExist | kFileMustExist;
constexpr std::uint32_t kDefaultSaveFlags = kOverwritePrompt | kHideReadOnly | kPathMustExist;
static_assert(kDefaultOpenFlags == 6145 && kDefaultSaveFlags == 2054);

QString withoutTrailingNul(QString text) {
  while (text.endsWith(kNul)) text.chop(1);
  return text;
}

}  // namespace

void ObjFiledialog::setFilename(const QString& name) {
  filename_ = name;
  if (filename_.size() <= kLongestName) filename_ = filename_.leftJustified(kLongestName + 1, kNul);
}

QString ObjFiledialog::ShowOpen(QWidget* owner) { return showTrapped("ShowOpen", "Open", owner); }

QString ObjFiledialog::ShowSave(QWidget* owner) { return showTrapped("ShowSave", "Save", owner); }

QString ObjFiledialog::showTrapped(std::string_view procedure, const QString& intent,
                                   QWidget* owner) {
  QString chosen;
  attempt(context_, "ObjFiledialog", procedure, [&] { chosen = show(intent, owner); });
  return chosen;
}

bool ObjFiledialog::CheckFlags(const QString& intent, QWidget* owner) {
  if (Flags != 0) return true;
  if (intent == "Open") {
    Flags = kDefaultOpenFlags;
  } else if (intent == "Save") {
    Flags = kDefaultSaveFlags;
  } else {
    QMessageBox::critical(owner, "CheckFlags", "Unbekannte Intention: " + intent);
    return false;
  }
  return true;
}

FileDialogRecord ObjFiledialog::record(const QString& intent) const {
  FileDialogRecord record;
  record.filter = filterText();
  record.buffer = filename_;
  record.initDir = InitDir + kNul;
  record.flags = Flags;
  const QString fallback =
      intent == "Save" ? QStringLiteral("Datei speichern unter") : QStringLiteral("Datei öffnen");
  record.title = (DialogTitle.isEmpty() ? fallback : DialogTitle) + kNul;
  record.defaultExt = DefaultExt + kNul;
  return record;
}

QString ObjFiledialog::show(const QString& intent, QWidget* owner) {
  if (filename_.isEmpty()) setFilename({});
  if (!CheckFlags(intent, owner)) return {};
  // A cancelled dialog returns no name, even if one was preset.
  filename_ = runSystemFileDialog(record(intent), intent == "Save", owner);
  return filename_;
}

QString ObjFiledialog::filterText() const {
  const std::array<std::pair<const QString*, const QString*>, 5> filters = {
      {{&Filter1Text, &Filter1Suffix},
       {&Filter2Text, &Filter2Suffix},
       {&Filter3Text, &Filter3Suffix},
       {&Filter4Text, &Filter4Suffix},
       {&Filter5Text, &Filter5Suffix}}};
  QString out;
  for (const auto& [text, suffix] : filters) {
    if (!text->isEmpty() && !suffix->isEmpty()) out += *text + kNul + *suffix + kNul;
  }
  if (!Filter.isEmpty()) out += withoutTrailingNul(Filter) + kNul;
  if (out.isEmpty()) out = QStringLiteral("Alle Dateien") + kNul + "*.*" + kNul;
  return withoutTrailingNul(out) + kNul + kNul;
}

}  // namespace quillon::windows
