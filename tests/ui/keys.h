#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "support/scripted_prompter.h"
#include "ui/form_driver.h"

namespace orvex::test {

/// The keys that work in `form` in its current state: those of its buttons, actions and other
/// shortcuts, without those of dialogs above it.
inline QList<QKeySequence> KeysOf(const QWidget& form) {
  QList<QKeySequence> keys;
  for (const auto* button : form.findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || !button->isEnabled() || button->window() != &form) continue;
    keys << button->shortcut() << QKeySequence(button->property("otherKey").toString());
  }
  for (const auto* label : form.findChildren<QLabel*>()) {
    if (label->isVisible() && label->buddy() && label->window() == &form)
      keys << QKeySequence::mnemonic(label->text());
  }
  for (const auto* action : form.actions()) {
    if (action->isEnabled()) keys << action->shortcuts();
  }
  for (const auto* shortcut : form.findChildren<QShortcut*>()) {
    const auto* where = qobject_cast<const QWidget*>(shortcut->parent());
    if (where && where->window() == &form) keys << shortcut->key();
  }
  keys.removeAll(QKeySequence());
  return keys;
}

/// Expects no key to belong to two controls: they would take turns having the focus, and the key
/// would press neither.
inline void ExpectAKeyForEachControl() {
  for (const QWidget* form : QApplication::topLevelWidgets()) {
    if (!form->isVisible() || qobject_cast<const QFileDialog*>(form)) continue;  // Qt's own
    QList<QKeySequence> keys = KeysOf(*form);
    std::sort(keys.begin(), keys.end());
    const auto twice = std::adjacent_find(keys.begin(), keys.end());
    if (twice == keys.end()) continue;
    ADD_FAILURE() << form->objectName().toStdString() << ": " << twice->toString().toStdString()
                  << " belongs to two controls";
  }
}

/// Expects that a screen reader has a name for each control that can have the focus.
inline void ExpectANameForEachControl() {
  for (const QWidget* form : QApplication::topLevelWidgets()) {
    if (!form->isVisible() || form->objectName().isEmpty()) continue;  // Qt's own have none
    for (QWidget* control : form->findChildren<QWidget*>()) {
      if (!control->isVisible() || control->focusPolicy() == Qt::NoFocus) continue;
      if (control->focusProxy() || control->window() != form) continue;
      const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(control);
      const bool isNamed = spoken && !spoken->text(QAccessible::Name).trimmed().isEmpty();
      EXPECT_TRUE(isNamed) << control->metaObject()->className() << " "
                           << control->objectName().toStdString() << " in "
                           << form->objectName().toStdString() << " has no name";
    }
  }
}

/// Lets the program do its deferred work. When the active window has gone, brings the remaining one
/// to the front, as a window manager would. Expects no form to use a key twice, and a name for
/// each control.
inline void Settle() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ExpectAKeyForEachControl();
  ExpectANameForEachControl();
  if (QApplication::activeWindow()) return;
  for (QWidget* form : QApplication::topLevelWidgets()) {
    if (form->isVisible()) form->activateWindow();
  }
  QCoreApplication::processEvents();
}

/// Presses the keys of `script` in the focused control: '\n' is Enter, '\t' is Tab, braces
/// name any other key ("{Alt+S}", "{Up}"), and all other characters are typed.
inline void Keys(const std::string& script) {
  const QString keys = QString::fromStdString(script);
  for (qsizetype at = 0; at < keys.size(); ++at) {
    QWidget* focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr) << "nothing has the focus to take: " << script;
    const char16_t key = keys.at(at).unicode();
    if (key == '\n' || key == '\t' || key == ' ') {
      QTest::keyClick(focused, key == '\n'   ? Qt::Key_Return
                               : key == '\t' ? Qt::Key_Tab
                                             : Qt::Key_Space);
      Settle();
    } else if (key == '{') {
      const qsizetype end = keys.indexOf(QLatin1Char('}'), at);
      const auto named = QKeySequence::fromString(keys.mid(at + 1, end - at - 1));
      ASSERT_EQ(named.count(), 1) << script;
      QTest::keyClick(focused, named[0].key(), named[0].keyboardModifiers());
      Settle();
      at = end;
    } else {
      const Qt::Key code = key < 0x80 ? QTest::asciiToKey(static_cast<char>(key)) : Qt::Key_unknown;
      QTest::sendKeyEvent(QTest::Click, focused, code, QString(keys.at(at)), Qt::NoModifier);
    }
  }
}

/// Fires every timer of the forms once.
inline void TickForms() {
  for (const QWidget* form : QApplication::topLevelWidgets()) {
    for (QTimer* timer : form->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly)) {
      QTimerEvent tick(timer->timerId());
      if (timer->isActive()) QCoreApplication::sendEvent(timer, &tick);
    }
  }
}

/// The buttons of `form` that can be pressed, in their order.
inline std::vector<QPushButton*> ButtonsOf(const QWidget& form) {
  std::vector<QPushButton*> offered;
  for (QPushButton* button : form.findChildren<QPushButton*>()) {
    if (button->isVisible() && button->isEnabled()) offered.push_back(button);
  }
  return offered;
}
inline std::string CaptionsOf(const QWidget& form) {
  std::string captions;
  for (const QPushButton* button : ButtonsOf(form)) {
    captions += (captions.empty() ? "" : "|") + button->text().toStdString();
  }
  return captions;
}

/// The key that presses `button`; "" if there is none.
inline std::string KeyOf(const QPushButton& button) {
  const std::string key = button.shortcut().toString().toStdString();
  return key.empty() ? button.property("otherKey").toString().toStdString() : key;
}

/// The questions of the buttons that ask for confirmation.
inline const std::map<std::string, std::string> kQuestions = {{"{Alt+S}", "Start New Segment?"},
                                                              {"{Alt+P}", "Start New Episode?"},
                                                              {"{Alt+E}", "Verify END OF CLASS"}};

/// Tests each button that the form has after `open`: Enter must not press it, and its key must
/// press it from wherever the focus was.
inline void TryButtons(ScriptedPrompter& prompter, const std::function<QWidget&()>& open,
                       bool confirmed = true) {
  for (std::size_t i = 0; i < ButtonsOf(open()).size(); ++i) {
    QWidget* focused = QApplication::focusWidget();
    QPushButton* button = ButtonsOf(*focused->window()).at(i);
    SCOPED_TRACE(button->text().toStdString());
    const QSignalSpy clicks(button, &QPushButton::clicked);
    button->setFocus();
    Keys("\n{Enter}");
    EXPECT_EQ(clicks.count(), 0);
    focused->setFocus();
    const std::string keys = "{" + KeyOf(*button) + "}";
    ASSERT_NE(keys, "{}") << "a button without a key";
    const auto question = kQuestions.find(keys);
    if (confirmed && question != kQuestions.end()) prompter.Expect(question->second, Answer::no);
    if (button->text() == QLatin1String("Proo&f") || button->text() == QLatin1String("N&ext")) {
      prompter.Expect("Everything coded; no invalid codes found", Answer::ok);
    }
    if (button->text() == QLatin1String("Fieldnotes")) prompter.ExpectNotes({});
    Keys(keys);
    EXPECT_EQ(clicks.count(), 1);
  }
}

}  // namespace orvex::test
