#include "ui/Forms.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <functional>

#include "support/desk.h"
#include "ui/keys.h"

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

  /// Does `work` in the running program, and returns when the program has ended.
  static void RunUntilTheEnd(const std::function<void()>& work) {
    QTimer::singleShot(0, work);
    QApplication::exec();
  }

  Desk desk_;
  Forms forms_{desk_.program, desk_.log,      desk_.storage,
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

}  // namespace
}  // namespace orvex
