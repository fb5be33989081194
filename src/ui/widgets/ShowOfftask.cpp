#include "ui/widgets/ShowOfftask.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QLabel>

#include "observe/offtask_indicator.h"
#include "ui/show.h"
#include "ui/widgets/OfftaskButton.h"

namespace orvex {

void ShowOfftask(const OfftaskIndicator& indicator, QLabel* countdown, OfftaskButton* button) {
  ShowText(countdown, indicator.CountdownText());
  const QString caption = QCoreApplication::translate("ShowOfftask", "* &OFFTASK *");
  ShowText(button, indicator.ButtonBlank() ? QString() : caption);
  button->ShowPending(indicator.Pending());
  const QKeySequence key(Qt::ALT | Qt::Key_O);
  if (button->shortcut() != key) button->setShortcut(key);
  button->setVisible(indicator.ButtonVisible());
  Q_EMIT button->Shown();
}

}  // namespace orvex
