#include "ui/keys/HeldKeys.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>

#include "ui/widgets/CommandButton.h"

namespace orvex {
namespace {

/// How many presses of a held key reach a control. The display sends one press, then pairs of a
/// release and a press with the same timestamp. Qt flags these pairs as repeats only when it sees
/// both at once.
template <typename Control>
int Hold(int key, Qt::KeyboardModifiers modifiers, bool flagged) {
  struct Counting : Control {
    void keyPressEvent(QKeyEvent*) override { ++presses; }
    int presses = 0;
  } control;
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
  return control.presses;
}

TEST(HeldKeys, WhatDoesSomethingCountsOnceHoweverLongItIsHeld) {
  for (const bool flagged : {true, false}) {
    SCOPED_TRACE(flagged);
    EXPECT_EQ(Hold<QLineEdit>(Qt::Key_Return, Qt::NoModifier, flagged), 2);
    EXPECT_EQ(Hold<QLineEdit>(Qt::Key_Down, Qt::NoModifier, flagged), 2);
    EXPECT_EQ(Hold<QLineEdit>(Qt::Key_N, Qt::ControlModifier, flagged), 2);
    EXPECT_EQ(Hold<QLineEdit>(Qt::Key_L, Qt::AltModifier, flagged), 2);
    EXPECT_EQ(Hold<QLineEdit>(Qt::Key_F7, Qt::NoModifier, flagged), 2);
    EXPECT_EQ(Hold<CommandButton>(Qt::Key_Space, Qt::NoModifier, flagged), 2);
    EXPECT_EQ(Hold<QRadioButton>(Qt::Key_2, Qt::NoModifier, flagged), 2);
    // Keys that move or type repeat as usual.
    EXPECT_EQ(Hold<QLineEdit>(Qt::Key_A, Qt::NoModifier, flagged), 5);
    EXPECT_EQ(Hold<CommandButton>(Qt::Key_Down, Qt::NoModifier, flagged), 5);
  }
}

TEST(HeldKeys, AHeldMnemonicIsNoShortcut) {
  QLineEdit box;
  for (const bool held : {false, true}) {
    QKeyEvent press(QEvent::ShortcutOverride, Qt::Key_L, Qt::AltModifier, QString(), held);
    QApplication::sendEvent(&box, &press);
    EXPECT_EQ(press.isAccepted(), held) << "accepted, it does not reach the button";
  }
}

}  // namespace
}  // namespace orvex
