#include "ui/HeldKeys.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLineEdit>

#include "support/desk.h"
#include "ui/CommandButton.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

/// Counts the presses that come through to a control.
template <typename Control>
class Counting : public Control {
 public:
  using Control::Control;
  int presses = 0;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    ++presses;
    Control::keyPressEvent(event);
  }
};

/// A key held down as the display sends it: a press, and then releases and presses in pairs of one
/// time. Qt flags the pairs only when it sees both at once.
void Hold(QWidget& control, int key, Qt::KeyboardModifiers modifiers, bool flagged) {
  const auto send = [&](QEvent::Type type, bool repeated, quint64 time) {
    QKeyEvent event(type, key, modifiers, QString(), repeated);
    event.setTimestamp(time);
    QApplication::sendEvent(&control, &event);
  };
  send(QEvent::KeyPress, false, 1000);
  for (quint64 time = 1500; time < 1600; time += 40) {
    send(QEvent::KeyRelease, flagged, time);
    send(QEvent::KeyPress, flagged, time);
  }
  send(QEvent::KeyRelease, false, 1700);
  send(QEvent::KeyPress, false, 1900);  // pressed again
}

TEST(HeldKeys, WhatDoesSomethingCountsOnceHoweverLongItIsHeld) {
  for (const bool flagged : {true, false}) {
    SCOPED_TRACE(flagged);
    const auto inBox = [flagged](int key, Qt::KeyboardModifiers modifiers) {
      Counting<QLineEdit> box;
      Hold(box, key, modifiers, flagged);
      return box.presses;
    };
    const auto onButton = [flagged](int key) {
      Counting<CommandButton> button;
      Hold(button, key, Qt::NoModifier, flagged);
      return button.presses;
    };
    EXPECT_EQ(inBox(Qt::Key_Return, Qt::NoModifier), 2);
    EXPECT_EQ(inBox(Qt::Key_Down, Qt::NoModifier), 2);
    EXPECT_EQ(inBox(Qt::Key_N, Qt::ControlModifier), 2);
    EXPECT_EQ(inBox(Qt::Key_L, Qt::AltModifier), 2);
    EXPECT_EQ(onButton(Qt::Key_Space), 2);
    // Moving and typing repeat as everywhere.
    EXPECT_EQ(inBox(Qt::Key_Backspace, Qt::NoModifier), 5);
    EXPECT_EQ(inBox(Qt::Key_A, Qt::NoModifier), 5);
    EXPECT_EQ(onButton(Qt::Key_Down), 5);
  }
}

TEST(HeldKeys, AHeldMnemonicIsNoShortcut) {
  QLineEdit box;
  QKeyEvent first(QEvent::ShortcutOverride, Qt::Key_L, Qt::AltModifier, QString(), false);
  QApplication::sendEvent(&box, &first);
  EXPECT_FALSE(first.isAccepted());
  QKeyEvent repeated(QEvent::ShortcutOverride, Qt::Key_L, Qt::AltModifier, QString(), true);
  QApplication::sendEvent(&box, &repeated);
  EXPECT_TRUE(repeated.isAccepted()) << "accepted, it does not reach the button";
}

}  // namespace
}  // namespace orvex
