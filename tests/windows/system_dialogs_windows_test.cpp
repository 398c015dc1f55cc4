// The system's own dialogs, shell and help on Windows.
#include <windows.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>

#include "files/paths.h"
#include "windows/app_icon.h"
#include "windows/file_dialog.h"
#include "windows/help_viewer.h"
#include "windows/shell.h"
#include "windows/system_file_dialog.h"
#include "windows/system_help.h"
#include "windows/system_shell.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

/// Operates the next system dialog with a given title like a user, from another thread, as the
/// dialog runs its own event loop.
class DialogUser {
 public:
  DialogUser(const char* title, int button, std::optional<std::wstring> name = {})
      : thread_([this, title, button, name] {
          const HWND dialog = waitFor(title);
          if (dialog == nullptr) return;
          seen_ = true;
          // The name is in a combo box or in a plain field (cmb13 or edt1).
          constexpr int kNameList = 0x47C;
          constexpr int kNameField = 0x480;
          const bool hasList = IsWindowVisible(GetDlgItem(dialog, kNameList)) != 0;
          if (name) SetDlgItemTextW(dialog, hasList ? kNameList : kNameField, name->c_str());
          std::this_thread::sleep_for(std::chrono::milliseconds(100));
          PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
        }) {}

  /// True if the dialog opened.
  bool seen() {
    if (thread_.joinable()) thread_.join();
    return seen_;
  }

 private:
  static HWND waitFor(const char* title) {
    for (int i = 0; i < 400; ++i) {
      const HWND dialog = FindWindowA("#32770", title);
      if (dialog != nullptr && IsWindowVisible(dialog) != 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));  // it is filling its lists
        return dialog;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return nullptr;
  }

  bool seen_ = false;
  std::jthread thread_;
};

class SystemDialogTest : public WindowTest {
 protected:
  SystemDialogTest() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false); }
  ~SystemDialogTest() override {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    std::filesystem::current_path(workingFolder);  // dialogs change the working folder
  }

  ObjFiledialog dialogFor(const char* title, const char* suffix) {
    ObjFiledialog dialog(context);
    dialog.DialogTitle = title;
    dialog.Filter1Text = "Files";
    dialog.Filter1Suffix = suffix;
    dialog.InitDir = QDir::toNativeSeparators(toQt(folder.path().string()));
    return dialog;
  }

  /// The mean difference between two pictures of the same size, per pixel and channel; at most 255.
  static double meanDifference(const QImage& a, const QImage& b) {
    double sum = 0.0;
    for (int y = 0; y < a.height(); ++y) {
      for (int x = 0; x < a.width(); ++x) {
        const QRgb one = qPremultiply(a.pixel(x, y));
        const QRgb other = qPremultiply(b.pixel(x, y));
        sum += std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
               std::abs(qBlue(one) - qBlue(other)) + std::abs(qAlpha(one) - qAlpha(other));
      }
    }
    return sum / (4.0 * a.width() * a.height());
  }

  std::filesystem::path workingFolder = std::filesystem::current_path();

  static QString sameForm(const QString& path) {
    return QDir::fromNativeSeparators(path).toLower();
  }
};

TEST_F(SystemDialogTest, OpenGivesTheFileThatIsChosen) {
  const std::filesystem::path drawing = folder.path() / L"Gehäuse.dxf";
  ASSERT_NE(files::openFile(drawing, "wb"), nullptr);
  ObjFiledialog dialog = dialogFor("Quillon opens", "*.dxf");
  dialog.Flags = kOpenFlags;
  DialogUser user("Quillon opens", IDOK, L"Gehäuse.dxf");
  const QString chosen = dialog.ShowOpen(nullptr);
  EXPECT_TRUE(user.seen());
  EXPECT_EQ(sameForm(chosen), sameForm(toQt(files::fromPath(drawing))));
  EXPECT_EQ(dialog.Filename(), chosen);
}

TEST_F(SystemDialogTest, OpenGivesAFileWhoseNameNoCodePageHas) {
  const std::filesystem::path in = folder.path() / L"Łódź Ω";
  std::filesystem::create_directory(in);
  const std::filesystem::path drawing = in / L"Größe Ω.dxf";
  ASSERT_NE(files::openFile(drawing, "wb"), nullptr);
  ObjFiledialog dialog = dialogFor("Quillon opens any", "*.dxf");
  dialog.InitDir = QDir::toNativeSeparators(toQt(files::fromPath(in)));
  dialog.Flags = kOpenFlags;
  {
    DialogUser user("Quillon opens any", IDOK, L"Größe Ω.dxf");
    EXPECT_EQ(sameForm(dialog.ShowOpen(nullptr)), sameForm(toQt(files::fromPath(drawing))));
    EXPECT_TRUE(user.seen());
  }
  // As a preset too.
  dialog.setFilename(toQt(files::fromPath(drawing)));
  DialogUser user("Quillon opens any", IDOK);
  EXPECT_EQ(sameForm(dialog.ShowOpen(nullptr)), sameForm(toQt(files::fromPath(drawing))));
  EXPECT_TRUE(user.seen());
}

TEST_F(SystemDialogTest, SaveGivesANameThatNoCodePageHas) {
  ObjFiledialog dialog = dialogFor("Quillon saves any", "*.scr");
  dialog.Flags = kNameFlags;
  dialog.DefaultExt = "scr";
  DialogUser user("Quillon saves any", IDOK, L"Łódź Ω");
  EXPECT_EQ(sameForm(dialog.ShowSave(nullptr)), sameForm(path("Łódź Ω.scr")));
  EXPECT_TRUE(user.seen());
}

TEST_F(SystemDialogTest, TheShellFindsAFileWhoseNameNoCodePageHas) {
  const std::filesystem::path file = folder.path() / L"Łódź Ω.of-no-program";
  ASSERT_NE(files::openFile(file, "wb"), nullptr);
  const QString name = QDir::toNativeSeparators(toQt(files::fromPath(file)));
  constexpr int kNoAssociation = 31;
  EXPECT_EQ(runSystemShell({name, kShowNormal, {}, {}, "open"}, nullptr), kNoAssociation);
}

TEST_F(SystemDialogTest, TheWindowHasTheIconOfTheExecutable) {
  const HMODULE executable = LoadLibraryExA(QUILLON_PROGRAM, nullptr, LOAD_LIBRARY_AS_DATAFILE);
  ASSERT_NE(executable, nullptr);
  for (const int size : {16, 32, 48, 256}) {
    const auto icon =
        static_cast<HICON>(LoadImageA(executable, "IDI_ICON1", IMAGE_ICON, size, size, 0));
    ASSERT_NE(icon, nullptr) << size;
    const QImage theirs = QImage::fromHICON(icon).convertToFormat(QImage::Format_ARGB32);
    DestroyIcon(icon);
    const QImage own =
        appIcon().pixmap(QSize(size, size), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
    ASSERT_EQ(theirs.size(), own.size());
    EXPECT_LT(meanDifference(theirs, own), 4.0) << size;  // renderers smooth edges differently
  }
  FreeLibrary(executable);
}

TEST_F(SystemDialogTest, OpenTakesThePresetAndTheFlags) {
  folder.write("part.dxf", "x");
  ObjFiledialog dialog = dialogFor("Quillon presets", "*.dxf");
  dialog.setFilename(path("part.dxf"));
  DialogUser user("Quillon presets", IDOK);
  EXPECT_EQ(sameForm(dialog.ShowOpen(nullptr)), sameForm(path("part.dxf")));
  EXPECT_TRUE(user.seen());
}

TEST_F(SystemDialogTest, SaveGivesANewNameWithTheDefaultExtension) {
  ObjFiledialog dialog = dialogFor("Quillon saves", "*.scr");
  dialog.Flags = kNameFlags;
  dialog.DefaultExt = "scr";
  DialogUser user("Quillon saves", IDOK, L"new");
  EXPECT_EQ(sameForm(dialog.ShowSave(nullptr)), sameForm(path("new.scr")));
  EXPECT_TRUE(user.seen());
}

TEST_F(SystemDialogTest, ACancelledDialogGivesNoName) {
  ObjFiledialog open = dialogFor("Quillon cancels", "*.dxf");
  {
    DialogUser user("Quillon cancels", IDCANCEL);
    EXPECT_EQ(open.ShowOpen(nullptr), "");
    EXPECT_TRUE(user.seen());
  }
  ObjFiledialog save = dialogFor("Quillon cancels too", "*.dxf");
  DialogUser user("Quillon cancels too", IDCANCEL);
  EXPECT_EQ(save.ShowSave(nullptr), "");
  EXPECT_TRUE(user.seen());
}

TEST_F(SystemDialogTest, TheRecordHasTheSizeOfItsVersion) {
  EXPECT_EQ(FileDialogRecord().structureSize, 136);
}

TEST_F(SystemDialogTest, TheShellSaysWhyItCannotOpenAFile) {
  EXPECT_EQ(runSystemShell(
                {QDir::toNativeSeparators(path("none.txt")), kShowNormal, {}, {}, "open"}, nullptr),
            2);
  ShellRequest request;
  request.file = path("none.txt");
  EXPECT_THROW(ShellEx(context, request, nullptr), ShellError);
}

TEST_F(SystemDialogTest, HelpWithoutACompiledFileIsLeftToThePages) {
  EXPECT_FALSE(showSystemHelp(toQt(folder.path().string()), 1000, nullptr));
}

}  // namespace
}  // namespace quillon::windows
