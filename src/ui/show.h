#pragma once

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSizePolicy>
#include <QWidget>
#include <cstddef>
#include <string>

#include "desk/focus.h"
#include "model/wording.h"
#include "ui/text.h"

namespace orvex {

/// Shows `text` in a label, button or box. Does nothing if it is shown already, so that the caret
/// and selection stay.
template <typename Control>
void ShowText(Control* control, const QString& text) {
  if (control->text() != text) control->setText(text);
}
template <typename Control>
void ShowText(Control* control, const std::string& text) {
  ShowText(control, ToQt(Shortened(text)));
}

/// True when `text` fits into a box. Qt would cut a longer text, and one key press would then
/// replace the whole text with what is left.
inline bool FitsBox(const std::string& text) {
  constexpr std::size_t kMost = 32767;
  constexpr std::size_t kMostBytesEach = 3;
  return text.size() <= kMost || (text.size() <= kMost * kMostBytesEach &&
                                  static_cast<std::size_t>(ToQt(text).size()) <= kMost);
}

/// Makes a box read-only while its text does not fit; it then shows a shortened version.
inline void ProtectLongText(QLineEdit* box, bool fits) {
  constexpr const char* kProtected = "protectsLongText";
  if (box->property(kProtected).toBool() != fits) return;
  box->setProperty(kProtected, !fits);
  box->setReadOnly(!fits);
  box->setToolTip(fits ? QString()
                       : QCoreApplication::translate(
                             "ShowText", "Too long to be edited here. The text stays as it is."));
}

/// Shows `text` in a box that the user may be typing in. The caret keeps its distance from the end.
inline void ShowText(QLineEdit* box, const std::string& text) {
  const bool fits = FitsBox(text);
  ProtectLongText(box, fits);
  const QString shown = ToQt(fits ? text : Shortened(text));
  if (box->text() == shown) return;
  const qsizetype behindCaret = box->text().size() - box->cursorPosition();
  box->setText(shown);
  box->setCursorPosition(static_cast<int>(shown.size() - behindCaret));
}

inline void ShowText(QComboBox* box, const std::string& text) {
  const QString shown = ToQt(text);
  if (box->currentText() == shown) return;
  const QSignalBlocker notTyped(box);
  // A text that is not in the list counts as the row before the first, so that Down leads to the
  // first.
  box->setCurrentIndex(box->findText(shown, Qt::MatchExactly | Qt::MatchCaseSensitive));
  box->setEditText(shown);
}

/// Gives `box` the focus and places its caret.
inline void FocusBox(QLineEdit* box, Caret caret) {
  box->setFocus(Qt::OtherFocusReason);
  if (caret == Caret::atEnd) box->setCursorPosition(static_cast<int>(box->text().size()));
  if (caret == Caret::selectAll) box->selectAll();
}

/// Focuses `control` as Tab would. The attribute makes the style show the focus even if the mouse
/// brought it to the window.
inline void FocusVisibly(QWidget* control) {
  control->window()->setAttribute(Qt::WA_KeyboardFocusChange);
  control->setFocus(Qt::TabFocusReason);
}

/// Focuses `box` as Tab would, with its whole text selected.
inline void FocusToReplace(QLineEdit* box) {
  FocusVisibly(box);
  box->selectAll();
}

/// Makes `label` stand out without taking the focus.
inline void ShowAsWarning(QLabel* label) {
  label->setAutoFillBackground(true);
  label->setBackgroundRole(QPalette::Highlight);
  label->setForegroundRole(QPalette::HighlightedText);
  label->setMargin(4);
}

/// Makes `control` keep its place in the layout while it is hidden.
inline void KeepPlace(QWidget* control) {
  QSizePolicy policy = control->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  control->setSizePolicy(policy);
}

}  // namespace orvex
