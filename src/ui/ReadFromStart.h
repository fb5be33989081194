#pragma once

#include <QLineEdit>
#include <string>

#include "ui/show.h"

namespace orvex {

/// Shows a text that may be longer than its box. A new one is read from its start by whoever is not
/// typing in it; caret and selection stay as long as the text does.
inline void ReadFromStart(QLineEdit* box, const std::string& text) {
  const QString before = box->text();
  ShowText(box, text);
  if (box->text() != before && !box->hasFocus()) box->setCursorPosition(0);
}

}  // namespace orvex
