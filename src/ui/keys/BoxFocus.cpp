#include "ui/keys/BoxFocus.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace orvex {

BoxFocus::BoxFocus(QWidget* form, std::vector<QWidget*> boxes, Entered entered, TryLeave tryLeave)
    : form_(form),
      boxes_(std::move(boxes)),
      entered_(std::move(entered)),
      tryLeave_(std::move(tryLeave)) {
  // Runs after the focus has arrived, so that a box can take it back.
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* to) {
    if (to && to->window() == form_ && to != current_ && !leaving_) FocusMoved(to);
  });
}

void BoxFocus::FocusMoved(QWidget* to) {
  if (!Leave()) return;
  // Leaving the box may have moved the focus somewhere else.
  QWidget* now = form_->focusWidget() ? form_->focusWidget() : to;
  const bool isBox = std::find(boxes_.begin(), boxes_.end(), now) != boxes_.end();
  current_ = isBox ? now : nullptr;
  if (current_) entered_(current_);
}

bool BoxFocus::Leave() {
  if (!current_) return true;
  leaving_ = true;
  const bool mayLeave = tryLeave_(current_);
  leaving_ = false;
  return mayLeave;
}

bool BoxFocus::CheckCurrent() {
  if (!Leave()) return false;
  if (current_) entered_(current_);
  return true;
}

}  // namespace orvex
