#include "ui/QtPrompter.h"

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "support/test_folder.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

/// Does `work` in the next dialog that opens.
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
  const auto kAll = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  const std::tuple<Buttons, Answer, QMessageBox::StandardButtons, Answer> cases[] = {
      {Buttons::ok, Answer::ok, QMessageBox::Ok, Answer::ok},
      {Buttons::okCancel, Answer::ok, QMessageBox::Ok | QMessageBox::Cancel, Answer::cancel},
      {Buttons::okCancel, Answer::cancel, QMessageBox::Ok | QMessageBox::Cancel, Answer::cancel},
      {Buttons::yesNo, Answer::yes, QMessageBox::Yes | QMessageBox::No, Answer::no},
      {Buttons::yesNo, Answer::no, QMessageBox::Yes | QMessageBox::No, Answer::no},
      {Buttons::yesNoCancel, Answer::yes, kAll, Answer::cancel},
  };
  QtPrompter prompter;
  for (const auto& [buttons, defaultAnswer, shown, refusal] : cases) {
    const Message message = {.text = "Go on with <b>7</b> & \xC3\xA9?",
                             .buttons = buttons,
                             .defaultAnswer = defaultAnswer,
                             .details = "line 7: expected a number"};
    InTheNext<QMessageBox>([&, shown = shown](QMessageBox& box) {
      EXPECT_EQ(box.text().toStdString(), message.text);
      EXPECT_EQ(box.informativeText().toStdString(), message.details);
      EXPECT_EQ(box.standardButtons(), shown);
      Keys("\n");
    });
    EXPECT_EQ(prompter.Ask(message), defaultAnswer);
    InTheNext<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(prompter.Ask(message), refusal);
  }
}

TEST(QtPrompter, LetsNoLetterAlonePressAButtonOfItsOwn) {
  const Message message = {.text = "Changes were not saved.",
                           .buttons = Buttons::yesNoCancel,
                           .defaultAnswer = Answer::yes,
                           .captions = {{Answer::yes, "Take them up"}, {Answer::no, "Discard"}}};
  for (const auto& [keys, answer] : {std::pair{"d\n", Answer::yes}, {"{Alt+D}", Answer::no}}) {
    InTheNext<QMessageBox>([keys = keys](QMessageBox&) { Keys(keys); });
    EXPECT_EQ(QtPrompter().Ask(message), answer);
  }
}

TEST(QtPrompter, TakesALineOfText) {
  const TextPrompt prompt = {
      .text = "Enter a new path", .title = "Path", .defaultText = "/data/\xC3\xA9t\xC3\xA9"};
  const std::pair<const char*, std::optional<std::string>> cases[] = {
      {"\n", prompt.defaultText}, {"/new\n", "/new"}, {"/new{Esc}", std::nullopt}};
  for (const auto& [keys, answer] : cases) {
    InTheNext<QInputDialog>([&, typed = keys](QInputDialog& dialog) {
      EXPECT_EQ(dialog.labelText().toStdString(), prompt.text);
      Keys(typed);
    });
    EXPECT_EQ(QtPrompter().AskText(prompt), answer);
  }
}

TEST(QtPrompter, SavesUnderAnotherNameAndReplacesOnlyWhenToldTo) {
  const TestFolder folder;
  PutFile(folder / "7-12-3.eps", "old");
  const FilePrompt prompt = {
      .folder = folder.Path(), .filter = "EPS files (*.EPS)|*.EPS", .defaultName = "7-12-3.eps"};
  QtPrompter prompter;
  InTheNext<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog.selectedFiles().first().toStdString(), folder / "7-12-3.eps");
    Keys("copy\n");
  });
  EXPECT_EQ(prompter.AskSaveFile(prompt).path, folder / "copy.eps");

  InTheNext<QFileDialog>([](QFileDialog& dialog) {
    InTheNext<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
    Keys("\n");  // the suggested name, which is taken
    EXPECT_TRUE(dialog.isVisible());
    dialog.reject();
  });
  EXPECT_TRUE(prompter.AskSaveFile(prompt).path.empty());
  EXPECT_EQ(FileBytes(folder / "7-12-3.eps"), "old");
}

TEST(QtPrompter, OffersSeveralUnfinishedThingsByTheKeyboard) {
  const auto item = [](const char* what, Answer likeliest, const char* close) {
    UnfinishedItem made;
    made.what = what;
    made.question.defaultAnswer = likeliest;
    made.question.captions = {
        {Answer::yes, "Go on"}, {Answer::no, close}, {Answer::cancel, "Leave it"}};
    return made;
  };
  const std::vector<UnfinishedItem> items = {item("a class", Answer::yes, "Close it"),
                                             item("a file", Answer::cancel, "Discard")};
  const std::tuple<const char*, std::size_t, Answer> cases[] = {
      {"\n", 0, Answer::yes},
      {"{Down}\n", 1, Answer::cancel},
      {"{Down}{Alt+D}", 1, Answer::no},
      {"\t\t\n", 0, Answer::no},
      {"{Down}{Up}{Alt+C}", 0, Answer::no}};
  QtPrompter prompter;
  for (const auto& [keys, row, answer] : cases) {
    InTheNext<QDialog>([typed = keys](QDialog&) { Keys(typed); });
    const auto choice = prompter.AskUnfinished(items);
    ASSERT_TRUE(choice) << keys;
    EXPECT_EQ(choice->item, row) << keys;
    EXPECT_EQ(choice->answer, answer) << keys;
  }
  for (const char* keys : {"{Esc}", "{Down}{Alt+A}"}) {
    InTheNext<QDialog>([typed = keys](QDialog&) { Keys(typed); });
    EXPECT_FALSE(prompter.AskUnfinished(items)) << keys;
  }
}

}  // namespace
}  // namespace orvex
