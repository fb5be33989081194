#pragma once

#include <QLineEdit>
#include <string>

#include "ui/show.h"

namespace orvex {

/// Shows a text that may be longer than its box. A new text shows its start, unless the user is
/// typing in the box. An unchanged text keeps its caret and selection.
inline void ReadFromStart(QLineEdit* box, const std::string& text) {
  const QString before = box->text();
  ShowText(box, text);
  if (box->text() != before && !box->hasFocus()) box->setCursorPosition(0);
}

}  // namespace orvex
