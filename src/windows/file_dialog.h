#pragma once

#include <QString>
#include <QWidget>
#include <array>
#include <cstdint>

#include "windows/app_context.h"

namespace quillon::windows {

/// Flags of the Windows file dialogs.
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

/// The parameters of a file dialog, in the form that Windows uses.
struct FileDialogRecord {
  int structureSize = sizeof(void*) == 4 ? 76 : 136;
  QString filter;  ///< pairs of text and pattern, NUL-terminated; two more NULs at the end
  int filterIndex = 1;
  QString buffer;   ///< the preset file name, padded with NUL
  QString initDir;  ///< NUL-terminated, like the members below
  QString title;
  std::uint32_t flags = 0;
  QString defaultExt;
};

/// A file dialog; create one for each use.
class ObjFiledialog {
 public:
  explicit ObjFiledialog(const AppContext& context) : context_(context) {}

  QString DefaultExt;
  QString DialogTitle;
  QString Filter;  ///< free filter text: pairs of text and pattern, separated by NUL
  QString Filter1Text, Filter2Text, Filter3Text, Filter4Text, Filter5Text;
  QString Filter1Suffix, Filter2Suffix, Filter3Suffix, Filter4Suffix, Filter5Suffix;
  std::uint32_t Flags = 0;  ///< 0: the default flags of the intent
  QString InitDir;

  /// The preset; padded with NULs until it is longer than 512 characters.
  void setFilename(const QString& name);
  /// The chosen file, or "".
  QString Filename() const { return filename_; }

  /// Show the dialog. Return the chosen file, or "" when cancelled.
  QString ShowOpen(QWidget* owner);
  QString ShowSave(QWidget* owner);

  /// If no flags are set, sets those of the intent ("Open" or "Save"). For any other intent, tells
  /// the user and returns false.
  bool CheckFlags(const QString& intent, QWidget* owner);

  /// The parameters for a dialog with this intent.
  FileDialogRecord record(const QString& intent) const;

 private:
  QString showTrapped(std::string_view procedure, const QString& intent, QWidget* owner);
  QString show(const QString& intent, QWidget* owner);
  QString filterText() const;

  const AppContext& context_;
  QString filename_;
};

}  // namespace quillon::windows
