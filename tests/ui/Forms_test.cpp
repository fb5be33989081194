#include "ui/Forms.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <csignal>
#include <filesystem>
#include <functional>

#include "recovery/kept_changes.h"
#include "support/desk.h"
#include "ui/EndOfSession.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

class FormsTest : public testing::Test {
 protected:
  /// The form with this name; null unless it is loaded.
  static QWidget* Form(const char* name) {
    for (QWidget* form : QApplication::topLevelWidgets()) {
      if (form->objectName() == QLatin1String(name)) return form;
    }
    return nullptr;
  }
  static bool Shown(const char* name) { return Form(name) && Form(name)->isVisible(); }

  /// Does `work` in the running program and waits until the program has ended.
  static void RunUntilTheEnd(const std::function<void()>& work) {
    QTimer::singleShot(0, work);
    QApplication::exec();
  }

  Desk desk_;
  Forms forms_{desk_.program, desk_.log,      desk_.recovery,     desk_.storage,
               desk_.clock,   desk_.prompter, desk_.folder.Path()};
};

TEST_F(FormsTest, LeadFromTheMenuIntoTheClassAndEndWithTheLastOne) {
  RunUntilTheEnd([this] {
    forms_.Show(Screen::mainMenu);
    const QWidget& menu = *Form("frmSplash");
    Settle();
    Keys("\n");
    EXPECT_EQ(Form("frmInput1"), nullptr) << "Enter presses no button";
    desk_.prompter.ExpectText(desk_.folder.Path().string());
    Click(Find(menu, "Command6"));
    EXPECT_EQ(FileBytes(desk_.folder / "options"), desk_.folder.Path().string() + "\r\n");
    desk_.prompter.ExpectFile({.path = {}, .folder = desk_.folder.Path()});
    Keys("{Alt+M}");
    EXPECT_EQ(desk_.prompter.askedFiles.back().filter, "SUR files (*.SUR)|*.SUR");
    Keys("{Alt+N}");
    EXPECT_EQ(Form("frmSplash"), nullptr);
    Keys("AB\n7\n12\n3\n25\n ");
    EXPECT_TRUE(Shown("frmClassAct"));
    EXPECT_FALSE(Shown("frmInput1"));
    EXPECT_NE(Form("frmInput1"), nullptr) << "hidden, and still loaded";
    Form("frmClassAct")->close();
  });
  RunUntilTheEnd([this] {
    forms_.Show(Screen::mainMenu);
    Form("frmSplash")->close();
  });
}

TEST_F(FormsTest, KeepWhatIsNotSavedWhenTheSystemEndsTheProgram) {
  const auto file = desk_.folder / "22-4-8.eps";
  const std::string before = FileBytes(TestData("edits/22-4-8.eps"));
  const std::function<void()> ends[] = {
      [] { ::raise(SIGTERM); },
      [] { ::raise(SIGHUP); },
      [] { ::raise(SIGINT); },
      [] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
      },
  };
  for (const auto& end : ends) {
    PutFile(file, before);
    const EndOfSession endOfSession([this] { forms_.KeepAll(); }, [this] { forms_.EndProgram(); });
    RunUntilTheEnd([&] {
      ASSERT_TRUE(forms_.ShowEpisodeEditor(file, Kept::areOffered));
      Settle();
      Find(*Form("frmClassEdit"), "txtEpisodeName")->setFocus();
      Keys("!");
      end();  // without a question
    });
    forms_.Close(Screen::episodeEditor);
    Settle();
    EXPECT_EQ(FileBytes(file), before);
    EXPECT_NE(ReadKeptChanges(file).bytes.value_or("").find('!'), std::string::npos);
    std::filesystem::remove(RecoveryPathBeside(file));
  }
}

TEST_F(FormsTest, SayOfAnOpenedFileWhetherItsFirstEpisodeWasReview) {
  const auto path = desk_.folder / "11-4-2.eps";
  PutFile(path, FileBytes(TestData("class") / "11-4-2.eps"));
  RunUntilTheEnd([&] {
    ASSERT_TRUE(forms_.ShowEpisodeEditor(path, Kept::areOffered));
    Settle();
    EXPECT_EQ(Find<QLabel>(*Form("frmClassEdit"), "Label10")->text(),
              QStringLiteral("Question/Answer: 13 Question(s) (Review Session)"));
    forms_.EndProgram();
  });
}

TEST_F(FormsTest, LeadFromTheMenuThroughTheEpisodeEditorToTheEnd) {
  const auto file = [this](const char* name) {
    const auto path = desk_.folder / name;
    PutFile(path, FileBytes(TestData("edits") / name));
    return ChosenFile{.path = path, .folder = desk_.folder.Path()};
  };
  const auto label = [](const char* name) {
    return Find<QLabel>(*Form("frmClassEdit"), name)->text().toStdString();
  };
  RunUntilTheEnd([&] {
    forms_.Show(Screen::mainMenu);
    Settle();
    desk_.prompter.ExpectFile({});
    Keys("{Alt+E}");
    EXPECT_TRUE(Shown("frmSplash")) << "no file was chosen";
    desk_.prompter.ExpectFile(file("7-24-2.eps"));
    Keys("{Alt+E}");
    EXPECT_EQ(Form("frmSplash"), nullptr);
    ASSERT_TRUE(Shown("frmClassEdit"));

    // The question editor opens on the episode shown. What is done there becomes a single undo
    // step.
    Keys("{Down}{Alt+E}");
    EXPECT_FALSE(Shown("frmClassEdit"));
    ASSERT_TRUE(Shown("frmQA"));
    EXPECT_EQ(Find<QLineEdit>(*Form("frmQA"), "Text1")->text(),
              QStringLiteral("Peer editing of keeping a promise essays"));
    Keys("{Alt+P}{Alt+I}New?{Alt+R}");
    Settle();
    EXPECT_EQ(Form("frmQA"), nullptr);
    EXPECT_EQ(label("Label10"), "Small group and pairwork: 2 Question(s)");
    EXPECT_TRUE(Form("frmClassEdit")->isWindowModified());
    EXPECT_EQ(Find<QPushButton>(*Form("frmClassEdit"), "cmdUndo")->text(),
              QStringLiteral("&Undo Type question"));
    Keys("{Ctrl+Z}{Ctrl+Z}");
    EXPECT_EQ(label("Label10"), "Small group and pairwork: 1 Question(s)");
    Keys("{Ctrl+Z}");
    EXPECT_FALSE(Form("frmClassEdit")->isWindowModified());
    // The reports, and how they lead to each other.
    const std::pair<const char*, const char*> moves[] = {
        {"{Alt+C}", "frmQuestionStats"}, {"{Alt+E}", "frmQA"},
        {"{Alt+R}", "frmQuestionStats"}, {"{Alt+M}", "frmClassEdit"},
        {"{Alt+T}", "frmTimeSummary"},   {"{Esc}", "frmClassEdit"},
        {"{Alt+P}", "frmQuestionPlot"},  {"{Alt+B}", "frmClassEdit"}};
    for (const auto& [keys, form] : moves) {
      Keys(keys);
      Settle();
      EXPECT_TRUE(Shown(form)) << keys;
    }
    Keys("{Alt+C}");
    Click(Find(*Form("frmQuestionStats"), "Command6"));
    Settle();
    Keys("{Alt+B}");
    EXPECT_TRUE(Shown("frmQuestionStats")) << "the plot goes back to where it was opened";
    Form("frmQuestionStats")->close();
    Settle();
    EXPECT_TRUE(Shown("frmClassEdit"));

    Click(Find(*Form("frmClassEdit"), "Command5"));
    EXPECT_TRUE(Shown("dlgTimer"));
    Form("dlgTimer")->close();

    desk_.prompter.Expect("Save Data?", Answer::no);
    desk_.prompter.Expect("Edit Another File?", Answer::yes);
    desk_.prompter.ExpectFile(file("22-4-8.eps"));
    Form("frmClassEdit")->close();
    EXPECT_EQ(label("Label12"), "Total: 8 Episodes");
    EXPECT_EQ(FocusedName(), "listViewEp");
    desk_.prompter.Expect("Save Data?", Answer::yes);
    desk_.prompter.Expect("Edit Another File?", Answer::no);
    Keys("{Alt+Q}");
  });
  EXPECT_EQ(FileBytes(desk_.folder / "22-4-8.eps"), FileBytes(TestData("edits/22-4-8.eps")));
}

}  // namespace
}  // namespace orvex
