#include "ui/FocusReturn.h"

#include <QAbstractButton>
#include <QApplication>

namespace orvex {

FocusReturn::FocusReturn(QAbstractButton* button) : QObject(button) {
  connect(qApp, &QApplication::focusChanged, this, [this, button](QWidget* from, QWidget* to) {
    // The window going to the back and coming again is no move.
    if (to == button && from && from != button && from->window() == button->window()) {
      before_ = from;
    }
  });
  connect(button, &QAbstractButton::clicked, this, [this] {
    QWidget* before = before_;
    // The click may have hidden the whole form, which keeps its focus for when it comes back.
    if (before && before->isVisibleTo(before->window()) && before->isEnabled()) {
      before->setFocus(Qt::ActiveWindowFocusReason);
    }
  });
}

}  // namespace orvex
