// The dialog that makes the tables of a study, by its keys.

#include "ui/forms/dlgTables.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>

#include "support/desk.h"
#include "ui/keys.h"
#include "ui/widgets/NotesBox.h"

namespace orvex {
namespace {

using namespace test;

/// A study of `count` observations, of which `selected` are selected.
struct StudyDesk : Desk {
  explicit StudyDesk(int count, std::size_t selected = 1) {
    const std::string bytes = FileBytes(TestData("class/17-17-7.eps"));
    for (int i = 1; i <= count; ++i) {
      const std::string name = "17-17-" + std::to_string(i);
      PutFile(folder / (name + ".eps"), bytes);
      selection.shown.push_back({name, folder / (name + ".eps"), {}});
    }
    selection.folder = folder.Path();
    selection.selected.assign(selection.shown.begin(),
                              selection.shown.begin() + static_cast<std::ptrdiff_t>(selected));
  }
  std::ptrdiff_t Rows(const char* table) const {
    const std::string text = FileBytes(folder / table);
    return std::count(text.begin(), text.end(), '\n');
  }

  StudySelection selection;
  TablesChoice choice;
};

/// Waits until the tables are made.
void AwaitTables(dlgTables& dialog) {
  EXPECT_TRUE(QTest::qWaitFor([&] { return Find(dialog, "cmdClose")->isEnabled(); }, 60000));
  Settle();
}

std::string Result(const dlgTables& dialog) {
  return Find<NotesBox>(dialog, "txtResult")->toPlainText().toStdString();
}

TEST(TablesDialog, MakesWhatIsCheckedOfAllThatIsShown) {
  StudyDesk desk(7);
  std::filesystem::create_directory(desk.folder / "out");
  dlgTables dialog(desk.services, desk.selection, desk.choice);
  Activate(dialog);
  EXPECT_EQ(FocusedName(), "chkEpsData");
  EXPECT_EQ(Find<QRadioButton>(dialog, "optSelected")->text(), QLatin1String("Se&lected (1)"));
  EXPECT_TRUE(Find<QRadioButton>(dialog, "optShown")->isChecked());
  EXPECT_FALSE(Find(dialog, "cmdMake")->isEnabled()) << "nothing is checked";
  Keys("{Alt+E}{Alt+P}{Alt+B}{Down}{Down}");
  desk.prompter.ExpectFolder(desk.folder / "out");
  Keys("{Alt+O}");
  EXPECT_EQ(desk.prompter.askedFolders.back(), desk.folder.Path());
  Keys("{Alt+M}");
  AwaitTables(dialog);
  EXPECT_EQ(FocusedName(), "cmdClose");
  EXPECT_EQ(desk.Rows("out/EPSDATA.TXT"), 21);
  EXPECT_EQ(desk.Rows("out/episodes.csv"), 22);
  EXPECT_TRUE(std::filesystem::exists(desk.folder / "out/episodes.R"));
  const auto* bar = Find<QProgressBar>(dialog, "prgFiles");
  EXPECT_EQ(bar->value(), bar->maximum());
  EXPECT_TRUE(
      Result(dialog).starts_with("EPSDATA.TXT: 21 rows from 7 files\n"
                                 "episodes.csv: 21 rows from 7 files\nepisodes.R\n"))
      << Result(dialog);
  EXPECT_NE(Result(dialog).find("17-17-1.eps: the identity line says 17-17-7."), std::string::npos);
  Keys("\n");
  EXPECT_FALSE(dialog.isVisible());
  // The next dialog begins with what was chosen.
  dlgTables next(desk.services, desk.selection, desk.choice);
  Activate(next);
  EXPECT_TRUE(Find<QCheckBox>(next, "chkEpsData")->isChecked());
  EXPECT_EQ(Find<QLineEdit>(next, "txtFolder")->text().toStdString(), desk.folder / "out");
  Keys("{Esc}");
  EXPECT_FALSE(next.isVisible());
}

TEST(TablesDialog, MakesTablesOfWhatIsSelectedWithEnterFromAnyBox) {
  for (const char* keys : {"{Alt+Q}\n", "{Alt+Q}{Alt+F}\n", "{Alt+Q}{Alt+H}{Alt+L}\n"}) {
    SCOPED_TRACE(keys);
    StudyDesk desk(5, 3);
    dlgTables dialog(desk.services, desk.selection, desk.choice);
    Activate(dialog);
    Keys(keys);
    AwaitTables(dialog);
    EXPECT_TRUE(Result(dialog).starts_with("questions.csv: 105 rows from 3 files\n"))
        << Result(dialog);
  }
}

TEST(TablesDialog, MakesOneDatabaseInsteadOfFiles) {
  StudyDesk desk(2);
  dlgTables dialog(desk.services, desk.selection, desk.choice);
  Activate(dialog);
  Keys("{Alt+Q}{Alt+D}");
  for (const char* name : {"chkQuestions", "chkSurvey", "cboCodebook"}) {
    EXPECT_FALSE(Find(dialog, name)->isEnabled()) << name;
  }
  EXPECT_TRUE(Find(dialog, "chkSurData")->isEnabled());
  Keys("{Alt+M}");
  AwaitTables(dialog);
  EXPECT_TRUE(FileBytes(desk.folder / "study.sqlite").starts_with("SQLite format 3"));
  EXPECT_FALSE(std::filesystem::exists(desk.folder / "questions.csv"));
}

TEST(TablesDialog, IsStoppedAndThenClosedByEscape) {
  StudyDesk desk(2000);
  PutFile(desk.folder / "questions.csv", "the old table\r\n");
  dlgTables dialog(desk.services, desk.selection, desk.choice);
  Activate(dialog);
  Keys("{Alt+Q}\n");
  auto* bar = Find<QProgressBar>(dialog, "prgFiles");
  EXPECT_TRUE(QTest::qWaitFor([&] { return bar->value() > 0; }, 60000));
  EXPECT_EQ(FocusedName(), "cmdStop");
  EXPECT_FALSE(Find(dialog, "cmdClose")->isEnabled());
  EXPECT_FALSE(Find(dialog, "chkQuestions")->isEnabled());
  EXPECT_TRUE(Find<QLabel>(dialog, "lblProgress")->text().endsWith(QLatin1String("of 2000 files")));
  Keys("{Esc}");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_TRUE(Result(dialog).starts_with("The earlier questions.csv stays as it was.\n"))
      << Result(dialog);
  EXPECT_EQ(FileBytes(desk.folder / "questions.csv"), "the old table\r\n");
  EXPECT_EQ(FocusedName(), "cmdClose");
  Keys("{Esc}");
  EXPECT_FALSE(dialog.isVisible());
}

TEST(TablesDialog, LetsAFailedWriteBeTriedAgain) {
  StudyDesk desk(1);
  dlgTables dialog(desk.services, desk.selection, desk.choice);
  Activate(dialog);
  Keys("{Alt+E}{Alt+F}");
  Find<QLineEdit>(dialog, "txtFolder")->setText(QString::fromStdString(desk.folder / "new"));
  desk.prompter.Expect("EPSDATA.TXT could not be written.", Answer::ok,
                       [&] { std::filesystem::create_directory(desk.folder / "new"); });
  Keys("\n");
  AwaitTables(dialog);
  EXPECT_EQ(desk.Rows("new/EPSDATA.TXT"), 3);
}

}  // namespace
}  // namespace orvex
