// Making the tables from the main menu while the user watches.

#include "ui/forms/frmListOfFiles.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <algorithm>

#include "support/desk.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

/// A list of `count` files, all of which exist except number `missing`.
struct ListDesk : Desk {
  ListDesk(int count, const std::string& extension, int missing = 0) {
    const std::string bytes = FileBytes(TestData("class/17-17-7" + extension));
    std::string list;
    for (int i = 1; i <= count; ++i) {
      const std::string name = "5-12-" + std::to_string(i);
      list += name + "\r\n";
      if (i != missing) PutFile(folder / (name + extension), bytes);
    }
    PutFile(folder / "LIST.TXT", list);
  }
  std::ptrdiff_t Rows(const char* table) const {
    const std::string text = FileBytes(folder / table);
    return std::count(text.begin(), text.end(), '\n');
  }
};

/// Waits until the form has finished.
void Await(QSignalSpy& finished) {
  if (finished.isEmpty()) finished.wait(60000);
  EXPECT_EQ(finished.count(), 1);
}

TEST(ListOfFilesForm, HighlightsTheFileInWorkAndEndsTheProgram) {
  ListDesk desk(2000, ".eps");
  frmListOfFiles form(desk.services, ExportKind::epsData, desk.folder / "LIST.TXT");
  QSignalSpy finished(&form, &frmListOfFiles::Finished);
  auto* files = Find<QListWidget>(form, "lstFiles");
  auto* bar = Find<QProgressBar>(form, "prgFiles");
  EXPECT_EQ(form.windowTitle(), QLatin1String("File list"));
  EXPECT_EQ(files->count(), 2000);
  EXPECT_EQ(files->currentItem()->text(), QLatin1String("5-12-1.eps"));
  // The form responds between files, so that what is shown keeps up with the work.
  std::vector<int> shown = {0};
  QObject::connect(files, &QListWidget::currentRowChanged, &form, [&](int row) {
    EXPECT_GT(row, shown.back());
    EXPECT_EQ(files->selectedItems().size(), 1);
    shown.push_back(row);
  });
  desk.prompter.Expect("EPSDATA file has been created.", Answer::ok, [&] {
    EXPECT_EQ(bar->value(), bar->maximum());
    EXPECT_FALSE(Find(form, "cmdStop")->isEnabled());
    EXPECT_EQ(Find<QLabel>(form, "lblCount")->text(), QLatin1String("2000 of 2000 files"));
  });
  Activate(form);
  Await(finished);
  EXPECT_GT(shown.size(), 2U);
  EXPECT_EQ(shown.back(), 1999);
  EXPECT_EQ(desk.Rows("EPSDATA.TXT"), 6000);
  EXPECT_EQ(desk.screens.Take(), std::vector<std::string>{"end"});
}

TEST(ListOfFilesForm, StaysOnTheFileThatIsMissing) {
  ListDesk desk(5, ".sur", 4);
  frmListOfFiles form(desk.services, ExportKind::surData, desk.folder / "LIST.TXT");
  EXPECT_EQ(form.objectName(), QLatin1String("frmListOfFilesSUR"));
  QSignalSpy finished(&form, &frmListOfFiles::Finished);
  desk.prompter.Expect("A file of the list could not be exported.", Answer::ok, [&] {
    EXPECT_EQ(Find<QListWidget>(form, "lstFiles")->currentItem()->text(),
              QLatin1String("5-12-4.sur"));
  });
  Activate(form);
  Await(finished);
  EXPECT_EQ(desk.Rows("SURDATA.TXT"), 3);
  EXPECT_EQ(desk.screens.Take(), std::vector<std::string>{"show mainMenu"});
}

TEST(ListOfFilesForm, IsStoppedByItsButtonAndByItsFrame) {
  for (const bool button : {true, false}) {
    SCOPED_TRACE(button);
    ListDesk desk(2000, ".eps");
    PutFile(desk.folder / "EPSDATA.TXT", "the old table\r\n");
    frmListOfFiles form(desk.services, ExportKind::epsData, desk.folder / "LIST.TXT");
    QSignalSpy finished(&form, &frmListOfFiles::Finished);
    auto* files = Find<QListWidget>(form, "lstFiles");
    bool stopped = false;
    QObject::connect(files, &QListWidget::currentRowChanged, &form, [&](int row) {
      if (row == 0 || stopped) return;
      stopped = true;
      if (button) {
        QTest::keyClick(Find(form, "cmdStop"), Qt::Key_Space);
      } else {
        EXPECT_FALSE(form.close());
      }
    });
    desk.prompter.Expect("The export was stopped.", Answer::ok,
                         [&] { EXPECT_FALSE(Find(form, "cmdStop")->isEnabled()); });
    Activate(form);
    Await(finished);
    const std::string name = files->currentItem()->text().toStdString();
    EXPECT_EQ(desk.prompter.asked.back().details,
              "It had come to line " + std::to_string(files->currentRow() + 1) +
                  " of LIST.TXT: " + name + ".\nThe earlier EPSDATA.TXT stays as it was.");
    EXPECT_EQ(FileBytes(desk.folder / "EPSDATA.TXT"), "the old table\r\n");
    EXPECT_EQ(desk.screens.Take(), std::vector<std::string>{"show mainMenu"});
  }
}

}  // namespace
}  // namespace orvex
