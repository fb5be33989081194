#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QList>
#include <QStringList>
#include <optional>

#include "running/question_history.h"
#include "ui/text.h"

namespace orvex {

/// The keys for undo or redo: the platform's, and those that users of other platforms know.
inline QList<QKeySequence> KeysOf(Way way) {
  if (way == Way::undo) return QKeySequence::keyBindings(QKeySequence::Undo);
  QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Redo);
  for (const char* known : {"Ctrl+Shift+Z", "Ctrl+Y"}) {
    const QKeySequence sequence{QLatin1String(known)};
    if (!keys.contains(sequence)) keys.append(sequence);
  }
  return keys;
}

/// Whether a key press means undo or redo; nothing for any other key.
inline std::optional<Way> WayOf(const QKeyEvent& key) {
  const QKeySequence sequence(key.keyCombination());
  for (const Way way : {Way::undo, Way::redo}) {
    if (KeysOf(way).contains(sequence)) return way;
  }
  return std::nullopt;
}

/// True when `box` itself can undo or redo some typing.
inline bool HasOwnStep(const QLineEdit& box, Way way) {
  return way == Way::undo ? box.isUndoAvailable() : box.isRedoAvailable();
}

/// Clears the undo history of `box`.
inline void ForgetTyping(QLineEdit* box) {
  const int caret = box->cursorPosition();
  box->setText(box->text());
  box->setCursorPosition(caret);
}

/// What the keys would do in the words of `object`: "Ctrl+Z brings question 7 back". Empty when
/// there is nothing to undo or redo.
template <typename Object>
QString StepsText(const Object& object) {
  QStringList steps;
  for (const Way way : {Way::undo, Way::redo}) {
    const QString step = ToQt(object.NextStep(way));
    if (step.isEmpty()) continue;
    steps << (way == Way::undo ? QCoreApplication::translate("UndoKeys", "Ctrl+Z %1")
                               : QCoreApplication::translate("UndoKeys", "Ctrl+Shift+Z %1"))
                 .arg(step);
  }
  return steps.join(QStringLiteral(",  "));
}

}  // namespace orvex
