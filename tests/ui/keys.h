#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeySequence>
#include <QTest>
#include <QTimer>
#include <string>

#include "ui/form_driver.h"

namespace orvex::test {

/// Lets the program do what it has put off. When the window in use is gone, the one that is left
/// comes to the front, as a window manager does it.
inline void Settle() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  if (QApplication::activeWindow()) return;
  for (QWidget* form : QApplication::topLevelWidgets()) {
    if (form->isVisible()) form->activateWindow();
  }
  QCoreApplication::processEvents();
}

/// Presses the keys of `script` where the focus is: '\n' is Enter, '\t' Tab, a name in braces any
/// other key ("{Alt+S}", "{Up}"), and every other character is typed.
inline void Keys(const std::string& script) {
  const QString keys = QString::fromStdString(script);
  for (qsizetype at = 0; at < keys.size(); ++at) {
    QWidget* focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr) << "nothing has the focus to take: " << script;
    const QChar key = keys.at(at);
    if (key == QLatin1Char('\n') || key == QLatin1Char('\t')) {
      QTest::keyClick(focused, key == QLatin1Char('\n') ? Qt::Key_Return : Qt::Key_Tab);
      Settle();
    } else if (key == QLatin1Char('{')) {
      const qsizetype end = keys.indexOf(QLatin1Char('}'), at);
      const QKeyCombination named =
          QKeySequence::fromString(keys.mid(at + 1, end - at - 1), QKeySequence::PortableText)[0];
      ASSERT_NE(named.key(), Qt::Key_unknown) << script;
      QTest::keyClick(focused, named.key(), named.keyboardModifiers());
      Settle();
      at = end;
    } else {
      const bool ascii = key.unicode() < 0x80;
      QTest::sendKeyEvent(QTest::Click, focused,
                          ascii ? QTest::asciiToKey(key.toLatin1()) : Qt::Key_unknown, QString(key),
                          Qt::NoModifier);
    }
  }
}

/// Lets every timer of the program's forms come round once.
inline void TickForms() {
  for (const QWidget* form : QApplication::topLevelWidgets()) {
    for (QTimer* timer : form->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (!timer->isActive()) continue;
      QTimerEvent tick(timer->timerId());
      QCoreApplication::sendEvent(timer, &tick);
    }
  }
}

}  // namespace orvex::test
