#pragma once

#include <QString>
#include <QWidget>
#include <array>
#include <cstdint>

#include "windows/app_context.h"

namespace quillon::windows {

/// Flags of Windows' file dialogs.
enum FileDialogFlag : std::uint32_t {
  kReadOnlyBox = 0x1,
  kOverwritePrompt = 0x2,
  kHideReadOnly = 0x4,
  kNoChangeOfFolder = 0x8,
  kPathMustExist = 0x800,
  kFileMustExist = 0x1000,
  kLongNames = 0x200000,
};
inline constexpr std::uint32_t kOpenFlags = 0x20180C;
inline constexpr std::uint32_t kNameFlags = 0x20080E;

/// What a file dialog is shown with, in the form that Windows takes.
struct FileDialogRecord {
  int structureSize = sizeof(void*) == 4 ? 76 : 136;
  QString filter;  ///< pairs of text and pattern, each ended by NUL; two more NUL at the end
  int filterIndex = 1;
  QString buffer;   ///< the preset file name, padded with NUL
  QString initDir;  ///< ends in NUL, as do the next ones
  QString title;
  std::uint32_t flags = 0;
  QString defaultExt;
};

/// A file dialog; one object for each use.
class ObjFiledialog {
 public:
  explicit ObjFiledialog(const AppContext& context) : context_(context) {}

  QString DefaultExt;
  QString DialogTitle;
  QString Filter;  ///< free filter text: pairs of text and pattern, separated by NUL
  QString Filter1Text, Filter2Text, Filter3Text, Filter4Text, Filter5Text;
  QString Filter1Suffix, Filter2Suffix, Filter3Suffix, Filter4Suffix, Filter5Suffix;
  std::uint32_t Flags = 0;  ///< 0: those of the intent
  QString InitDir;

  /// The preset; padded with NUL until it is longer than 512 characters.
  void setFilename(const QString& name);
  /// The chosen file, or "".
  QString Filename() const { return filename_; }

  /// Show the dialog. The result is the chosen file, or "" when it was cancelled.
  QString ShowOpen(QWidget* owner);
  QString ShowSave(QWidget* owner);

  /// Chooses flags by the intent ("Open" or "Save") where none are set; tells the user of any other
  /// intent and is false then.
  bool CheckFlags(const QString& intent, QWidget* owner);

  /// What a dialog with this intent is shown with.
  FileDialogRecord record(const QString& intent) const;

 private:
  QString showTrapped(std::string_view procedure, const QString& intent, QWidget* owner);
  QString show(const QString& intent, QWidget* owner);
  QString filterText() const;

  const AppContext& context_;
  QString filename_;
};

}  // namespace quillon::windows
