#include "ui/QtPrompter.h"

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <functional>

#include "support/test_folder.h"
#include "ui/form_driver.h"

namespace orvex {
namespace {

using namespace test;

/// Does `work` with the dialog that opens next.
template <typename Dialog>
void InTheNext(std::function<void(Dialog&)> work) {
  QTimer::singleShot(0, [work = std::move(work)] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    work(*dialog);
  });
}

TEST(QtPrompter, AsksWithTheButtonsAndTheDefaultThatAreWanted) {
  struct Case {
    Buttons buttons;
    Answer defaultAnswer;
    QMessageBox::StandardButtons shown;
    Answer refusal;
  };
  const auto kAll = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  const Case cases[] = {
      {Buttons::ok, Answer::ok, QMessageBox::Ok, Answer::ok},
      {Buttons::okCancel, Answer::ok, QMessageBox::Ok | QMessageBox::Cancel, Answer::cancel},
      {Buttons::okCancel, Answer::cancel, QMessageBox::Ok | QMessageBox::Cancel, Answer::cancel},
      {Buttons::yesNo, Answer::yes, QMessageBox::Yes | QMessageBox::No, Answer::no},
      {Buttons::yesNo, Answer::no, QMessageBox::Yes | QMessageBox::No, Answer::no},
      {Buttons::yesNoCancel, Answer::yes, kAll, Answer::cancel},
      {Buttons::yesNoCancel, Answer::no, kAll, Answer::cancel},
  };
  QtPrompter prompter;
  for (const Case& c : cases) {
    const Message message = {.text = "Go on with <b>7</b> & \xC3\xA9?",
                             .buttons = c.buttons,
                             .defaultAnswer = c.defaultAnswer,
                             .details = "line 7: expected a number"};
    InTheNext<QMessageBox>([&](QMessageBox& box) {
      EXPECT_EQ(box.windowTitle().toStdString(), "Orvex");
      EXPECT_EQ(box.text().toStdString(), message.text);
      EXPECT_EQ(box.informativeText().toStdString(), message.details);
      EXPECT_EQ(box.standardButtons(), c.shown);
      Press(Qt::Key_Return);
    });
    EXPECT_EQ(prompter.Ask(message), c.defaultAnswer);
    InTheNext<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(prompter.Ask(message), c.refusal);
    InTheNext<QMessageBox>([](QMessageBox& box) { box.close(); });
    EXPECT_EQ(prompter.Ask(message), c.refusal);
  }
}

TEST(QtPrompter, AsksInFrontOfTheFormInUse) {
  QWidget behind;
  QWidget inUse;
  Activate(behind);
  Activate(inUse);
  InTheNext<QMessageBox>([&](QMessageBox& box) {
    EXPECT_EQ(box.parentWidget(), &inUse);
    box.accept();
  });
  QtPrompter().Tell("Hello");
}

TEST(QtPrompter, IsNotTakenForTheLastFormThatIsClosed) {
  bool lastClosed = false;
  QObject receiver;
  QObject::connect(qApp, &QApplication::lastWindowClosed, &receiver, [&] { lastClosed = true; });
  QApplication::setQuitOnLastWindowClosed(false);
  QTimer::singleShot(0, [] {
    QtPrompter prompter;
    InTheNext<QMessageBox>([](QMessageBox& box) { box.close(); });
    prompter.Tell("The form that asks is hidden just now.");
    InTheNext<QInputDialog>([](QInputDialog& dialog) { dialog.accept(); });
    prompter.AskText({});
    QCoreApplication::exit();
  });
  QApplication::exec();
  EXPECT_FALSE(lastClosed);
}

TEST(QtPrompter, TakesALineOfText) {
  const TextPrompt prompt = {.text = "Enter a new path",
                             .title = "Default path",
                             .defaultText = "/data/\xC3\xA9t\xC3\xA9"};
  QtPrompter prompter;
  InTheNext<QInputDialog>([&](QInputDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle().toStdString(), prompt.title);
    EXPECT_EQ(dialog.labelText().toStdString(), prompt.text);
    Press(Qt::Key_Return);
  });
  EXPECT_EQ(prompter.AskText(prompt), prompt.defaultText);
  InTheNext<QInputDialog>([](QInputDialog&) {
    Type("/new");
    Press(Qt::Key_Return);
  });
  EXPECT_EQ(prompter.AskText(prompt), "/new") << "typing replaces what is offered";
  InTheNext<QInputDialog>([](QInputDialog&) {
    Type("/new");
    Press(Qt::Key_Escape);
  });
  EXPECT_EQ(prompter.AskText(prompt), std::nullopt);
}

TEST(QtPrompter, ReadsFilters) {
  const std::pair<const char*, const char*> filters[] = {
      {"EPS files (*.EPS)|*.EPS", "EPS files (*.EPS *.eps)"},
      {"TXT files (*.TXT)|*.TXT", "TXT files (*.TXT *.txt)"},
      {"Notes|*.nte; *.Txt", "Notes (*.NTE *.nte *.TXT *.txt)"},
  };
  for (const auto& [given, read] : filters) {
    EXPECT_EQ(NameFilter(QString::fromUtf8(given)).toStdString(), read);
  }
}

TEST(QtPrompter, TellsTheFileAndTheFolderTheDialogEndedIn) {
  const TestFolder disk;
  const std::filesystem::path school = disk / "EPS/5";
  PutFile(school / "12/5-12-3.EPS", "");
  const FilePrompt prompt = {.folder = school, .filter = "EPS files (*.EPS)|*.EPS"};
  QtPrompter prompter;

  InTheNext<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), school.string());
    auto* name = Find<QLineEdit>(dialog, "fileNameEdit");
    name->setFocus();
    Type("12/5-12-3.EPS");
    Press(Qt::Key_Return);
  });
  const ChosenFile chosen = prompter.AskFile(prompt);
  EXPECT_EQ(chosen.path, school / "12/5-12-3.EPS");
  EXPECT_EQ(chosen.folder, school / "12");

  InTheNext<QFileDialog>([&](QFileDialog& dialog) {
    dialog.setDirectory(QString::fromStdString(disk.Path().string()));
    dialog.reject();
  });
  const ChosenFile cancelled = prompter.AskFile(prompt);
  EXPECT_TRUE(cancelled.path.empty());
  EXPECT_EQ(cancelled.folder, disk.Path());
}

}  // namespace
}  // namespace orvex
