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

/// Shows `text` in a label, button or box, which is left alone when it shows it already: its caret
/// and selection stay.
template <typename Control>
void ShowText(Control* control, const QString& text) {
  if (control->text() != text) control->setText(text);
}
template <typename Control>
void ShowText(Control* control, const std::string& text) {
  ShowText(control, ToQt(Shortened(text)));
}

/// Qt cuts what is longer, and one key would then replace all of the text by its start.
inline bool FitsBox(const std::string& text) {
  constexpr std::size_t kMost = 32767;
  constexpr std::size_t kMostBytesEach = 3;
  return text.size() <= kMost || (text.size() <= kMost * kMostBytesEach &&
                                  static_cast<std::size_t>(ToQt(text).size()) <= kMost);
}

/// Leaves a text alone that does not fit its box: there it is shown shortened.
inline void ProtectLongText(QLineEdit* box, bool fits) {
  constexpr const char* kProtected = "protectsLongText";
  if (box->property(kProtected).toBool() != fits) return;
  box->setProperty(kProtected, !fits);
  box->setReadOnly(!fits);
  box->setToolTip(fits ? QString()
                       : QCoreApplication::translate(
                             "ShowText", "Too long to be edited here. The text stays as it is."));
}

/// A box whose text the logic has changed while it was typed: its caret keeps its distance from the
/// end.
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
  // A text that is none of the entries stands before the first one, where the Down key finds it.
  box->setCurrentIndex(box->findText(shown, Qt::MatchExactly | Qt::MatchCaseSensitive));
  box->setEditText(shown);
}

/// Gives `box` the focus, and puts its caret where it belongs.
inline void FocusBox(QLineEdit* box, Caret caret) {
  box->setFocus(Qt::OtherFocusReason);
  if (caret == Caret::atEnd) box->setCursorPosition(static_cast<int>(box->text().size()));
  if (caret == Caret::selectAll) box->selectAll();
}

/// Gives `control` the focus as Tab would, and lets it be seen: the style marks only a focus that
/// the keyboard has brought to its window.
inline void FocusVisibly(QWidget* control) {
  control->window()->setAttribute(Qt::WA_KeyboardFocusChange);
  control->setFocus(Qt::TabFocusReason);
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
