#include "ui/Forms.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "support/desk.h"
#include "ui/form_driver.h"

namespace orvex {
namespace {

using namespace test;

class FormsTest : public testing::Test {
 protected:
  /// The form of this name, if it is loaded.
  static QWidget* Form(const char* name) {
    for (QWidget* form : QApplication::topLevelWidgets()) {
      if (form->objectName() == QLatin1String(name)) return form;
    }
    return nullptr;
  }
  static bool Shown(const char* name) { return Form(name) && Form(name)->isVisible(); }

  static void Unload() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  /// Does `work` in the running program, and returns when the program has ended.
  static void RunUntilTheEnd(const std::function<void()>& work) {
    QTimer::singleShot(0, work);
    QApplication::exec();
  }

  void StartClass() {
    desk_.program.identity = {};
    forms_.Show(Screen::setUp);
    ASSERT_TRUE(QTest::qWaitForWindowActive(Form("frmInput1")));
    Find(*Form("frmInput1"), "txtInitials")->setFocus();
    for (const char* text : {"AB", "7", "12", "3", "25"}) {
      Type(text);
      Press(Qt::Key_Return);
    }
    Press(Qt::Key_Space);
    ASSERT_TRUE(Shown("frmClassAct"));
  }

  Desk desk_;
  Forms forms_{desk_.program, desk_.log,      desk_.storage,
               desk_.clock,   desk_.prompter, desk_.folder.Path()};
};

TEST_F(FormsTest, LeadFromTheMenuIntoTheClass) {
  forms_.Show(Screen::mainMenu);
  QWidget& menu = *Form("frmSplash");
  ASSERT_TRUE(QTest::qWaitForWindowActive(&menu));
  EXPECT_EQ(Find<QLabel>(menu, "lblProductName")->text().toStdString(), "Orvex 4.10");
  EXPECT_EQ(Find<QLabel>(menu, "Label2")->text().toStdString(), "09:00:00");
  EXPECT_EQ(FocusedName(), "cmdStart");
  Press(Qt::Key_Return);
  EXPECT_EQ(Form("frmInput1"), nullptr) << "Enter presses no button";
  Press(Qt::Key_N, Qt::AltModifier);
  EXPECT_TRUE(Shown("frmInput1"));
  Unload();
  EXPECT_EQ(Form("frmSplash"), nullptr);

  StartClass();
  EXPECT_FALSE(Shown("frmInput1"));
  EXPECT_NE(Form("frmInput1"), nullptr) << "hidden, and still loaded";
}

TEST_F(FormsTest, OfferOnlyWhatTheyCanDo) {
  forms_.Show(Screen::mainMenu);
  const QWidget& menu = *Form("frmSplash");
  for (const char* name : {"Command1", "Command3", "Command4", "Command5", "Command7"}) {
    EXPECT_FALSE(Find(menu, name)->isEnabled()) << name;
  }
  for (const char* name : {"cmdStart", "Command2", "Command6"}) {
    EXPECT_TRUE(Find(menu, name)->isEnabled()) << name;
  }
}

TEST_F(FormsTest, ChangeTheDataFolderFromTheMenu) {
  forms_.Show(Screen::mainMenu);
  desk_.prompter.ExpectText("/data");
  Click(Find(*Form("frmSplash"), "Command6"));
  EXPECT_EQ(FileBytes(desk_.folder / "options"), "/data\r\n");
  EXPECT_TRUE(Shown("frmSplash"));
}

TEST_F(FormsTest, EndTheProgramWhenTheLastOneIsClosed) {
  RunUntilTheEnd([this] {
    forms_.Show(Screen::mainMenu);
    Form("frmSplash")->close();
  });
  RunUntilTheEnd([this] {
    forms_.Show(Screen::mainMenu);
    Click(Find(*Form("frmSplash"), "Command2"));
  });
  RunUntilTheEnd([this] {
    forms_.Show(Screen::setUp);
    forms_.Close(Screen::mainMenu);
    Form("frmInput1")->close();
  });
  RunUntilTheEnd([this] {
    StartClass();
    Form("frmClassAct")->close();
  });
}

TEST_F(FormsTest, EndTheProgramOnlyWhenWhatRunsHasReturned) {
  bool returned = false;
  RunUntilTheEnd([&] {
    StartClass();
    QTimer::singleShot(0, [&] {
      forms_.EndProgram();
      EXPECT_TRUE(Shown("frmAboutInputBox"));
    });
    forms_.Show(Screen::aboutText);
    EXPECT_TRUE(Shown("frmClassAct")) << "whoever waits for the box still has its form";
    returned = true;
  });
  EXPECT_TRUE(returned);
}

TEST_F(FormsTest, TakeTheAboutTextAndKeepItHoweverTheBoxIsLeft) {
  const std::pair<const char*, std::function<void()>> ways[] = {
      {"OK", [] { Press(Qt::Key_O, Qt::AltModifier); }},
      {"Escape", [] { Press(Qt::Key_Escape); }},
      {"the window frame", [] { Form("frmAboutInputBox")->close(); }},
  };
  StartClass();
  std::string expected;
  for (const auto& [way, leave] : ways) {
    SCOPED_TRACE(way);
    QTimer::singleShot(0, [&, leave = leave] {
      ASSERT_TRUE(QTest::qWaitForWindowActive(Form("frmAboutInputBox")));
      EXPECT_EQ(FocusedName(), "txtAboutData");
      Type("ab");
      Press(Qt::Key_Return);
      EXPECT_TRUE(Shown("frmAboutInputBox")) << "Enter does not end it";
      Press(Qt::Key_Left);
      leave();
    });
    forms_.Show(Screen::aboutText);
    EXPECT_FALSE(Shown("frmAboutInputBox"));
    expected += "ab";
    EXPECT_EQ(Find<QLineEdit>(*Form("frmAboutInputBox"), "txtAboutData")->text().toStdString(),
              expected)
        << "the caret was after the text";
  }
}

}  // namespace
}  // namespace orvex
