#include "ui/ShowOfftask.h"

#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "observe/offtask_indicator.h"
#include "ui/show.h"

namespace orvex {

void ShowOfftask(const OfftaskIndicator& indicator, QLabel* countdown, QPushButton* button) {
  ShowText(countdown, indicator.CountdownText());
  ShowText(button, indicator.ButtonCaption());
  // Blank, it is no narrower.
  button->setMinimumWidth(std::max(button->minimumWidth(), button->sizeHint().width()));
  const QKeySequence key(Qt::ALT | Qt::Key_O);
  if (button->shortcut() != key) button->setShortcut(key);
  button->setVisible(indicator.ButtonVisible());
}

}  // namespace orvex
