#include "windows/qt_texts.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <memory>

#include "windows/file_dialog.h"
#include "windows/question.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

/// All texts in a window and its tool tips.
QStringList textsOf(const QWidget& window) {
  QStringList texts{window.windowTitle()};
  for (const QWidget* const control : window.findChildren<QWidget*>()) {
    texts << control->toolTip();
    if (const auto* button = qobject_cast<const QAbstractButton*>(control)) texts << button->text();
    if (const auto* label = qobject_cast<const QLabel*>(control)) texts << label->text();
    if (const auto* header = qobject_cast<const QHeaderView*>(control)) {
      for (int i = 0; i < header->count(); ++i) {
        texts << header->model()->headerData(i, header->orientation()).toString();
      }
    }
    for (const QAction* const action : control->actions()) texts << action->text();
  }
  for (QString& text : texts) text.remove('&');
  texts.removeAll("");
  return texts;
}

QStringList textsOfMenu(QMenu* menu) {
  const std::unique_ptr<QMenu> owner(menu);
  QStringList texts;
  for (const QAction* const action : menu->actions()) texts << action->text().remove('&');
  texts.removeAll("");
  return texts;
}

class QtTextsTest : public WindowTest {
 protected:
  using Collect = std::function<QStringList()>;

  /// The texts that are the same in both languages.
  QStringList untranslated(const Collect& collect) {
    context.LanguageOffset = texts::kEnglish;
    const QStringList english = collect();
    EXPECT_GT(english.size(), 2);
    context.LanguageOffset = texts::kGerman;
    const QStringList german = collect();
    EXPECT_EQ(german.size(), english.size());
    QStringList same;
    for (const QString& text : german) {
      if (english.contains(text)) same << text;
    }
    // Words that both languages share.
    for (const char* const shared : {"OK", "Name"}) same.removeAll(shared);
    return same;
  }
};

TEST_F(QtTextsTest, MessageBoxesSpeakTheLanguageOfTheWindows) {
  const Collect collect = [] {
    QMessageBox box;
    box.setStandardButtons(QMessageBox::Ok | QMessageBox::Save | QMessageBox::SaveAll |
                           QMessageBox::Open | QMessageBox::Yes | QMessageBox::YesToAll |
                           QMessageBox::No | QMessageBox::NoToAll | QMessageBox::Abort |
                           QMessageBox::Retry | QMessageBox::Ignore | QMessageBox::Close |
                           QMessageBox::Cancel | QMessageBox::Discard | QMessageBox::Help |
                           QMessageBox::Apply | QMessageBox::Reset | QMessageBox::RestoreDefaults);
    box.setDetailedText("1");
    box.show();
    return textsOf(box);
  };
  EXPECT_EQ(untranslated(collect), QStringList());
  EXPECT_TRUE(collect().contains("Abbrechen"));
}

TEST_F(QtTextsTest, QuestionsSpeakTheLanguageOfTheWindows) {
  const Collect collect = [this] {
    QStringList texts;
    whenModal<QMessageBox>([&texts](QMessageBox& box) {
      texts = textsOf(box);
      box.reject();
    });
    askQuestion(context, nullptr, "", "", QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                QMessageBox::Yes);
    return texts;
  };
  EXPECT_EQ(untranslated(collect), QStringList());
}

TEST_F(QtTextsTest, FileDialogsSpeakTheLanguageOfTheWindows) {
  for (const bool save : {false, true}) {
    const Collect collect = [this, save] {
      QStringList texts;
      whenModal<QFileDialog>([&texts](QFileDialog& dialog) {
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog) ||
                    dialog.findChild<QLineEdit*>("fileNameEdit") != nullptr);
        texts = textsOf(dialog);
        dialog.reject();
      });
      ObjFiledialog dialog{context};
      dialog.DialogTitle = context.text(texts::TextId::ScriptDialogTitle);
      dialog.Filter1Text = context.text(texts::TextId::ScriptFiles);
      dialog.Filter1Suffix = "*.scr";
      dialog.InitDir = toQt(folder.path().string());
      save ? dialog.ShowSave(nullptr) : dialog.ShowOpen(nullptr);
      return texts;
    };
    EXPECT_EQ(untranslated(collect), QStringList()) << save;
  }
}

TEST_F(QtTextsTest, TheQuestionOfAFileDialogIsTranslatedToo) {
  context.LanguageOffset = texts::kGerman;
  folder.write("old.lay", "");
  whenModal<QFileDialog>([this](QFileDialog& dialog) {
    whenModal<QMessageBox>([this](QMessageBox& box) {
      boxText = wholeText(box);
      for (const QAbstractButton* const button : box.buttons()) boxDetail += button->text();
      box.reject();
    });
    enterName(dialog, path("old.lay"));
    dialog.reject();
  });
  ObjFiledialog dialog{context};
  EXPECT_EQ(dialog.ShowSave(nullptr), "");
  EXPECT_TRUE(boxText.endsWith("old.lay existiert bereits.\nSoll sie überschrieben werden?"))
      << fromQt(boxText);
  EXPECT_EQ(boxDetail, "&Ja&Nein");
}

TEST_F(QtTextsTest, MenusOfTextFieldsSpeakTheLanguageOfTheWindows) {
  QLineEdit line;
  QPlainTextEdit lines;
  EXPECT_EQ(untranslated([&line] { return textsOfMenu(line.createStandardContextMenu()); }),
            QStringList());
  EXPECT_EQ(untranslated([&lines] { return textsOfMenu(lines.createStandardContextMenu()); }),
            QStringList());
}

TEST_F(QtTextsTest, FollowTheLanguageOfTheWindowsAtOnce) {
  const auto yes = [] { return QCoreApplication::translate("QPlatformTheme", "&Yes"); };
  context.LanguageOffset = texts::kGerman;
  EXPECT_EQ(yes(), "&Ja");
  context.LanguageOffset = texts::kEnglish;
  EXPECT_EQ(yes(), "&Yes");
  context.LanguageOffset = texts::kGerman;
  EXPECT_EQ(yes(), "&Ja");
}

TEST_F(QtTextsTest, LeaveTextsAloneThatAreNotOfQt) {
  context.LanguageOffset = texts::kGerman;
  EXPECT_EQ(QCoreApplication::translate("QAny", "Quillon's own"), "Quillon's own");
  EXPECT_EQ(QCoreApplication::translate("QAny", nullptr), "");
}

}  // namespace
}  // namespace quillon::windows
