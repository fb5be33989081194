#include "ui/print/ReportActions.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <utility>

#include "ui/keys/FormKeys.h"
#include "ui/print/PrintedReport.h"

namespace orvex {

ReportActions::ReportActions(QWidget* form, const Printing& printing, QScrollArea* area,
                             Qt::Orientation wide)
    : QObject(form), form_(form), printing_(printing), area_(area), wide_(wide) {
  auto* copy = new QAction(tr("Copy as text"), form);
  copy->setShortcut(QKeySequence::Copy);
  connect(copy, &QAction::triggered, this, &ReportActions::Copy);
  auto* print = new QAction(tr("Print\u2026"), form);
  print->setShortcut(QKeySequence::Print);
  connect(print, &QAction::triggered, this, &ReportActions::Print);
  form->addActions({copy, print});
  form->setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(new QShortcut(QKeySequence(Qt::Key_Escape), form), &QShortcut::activated, form,
          &QWidget::close);
  new FormKeys(form, {.own = [this](const QWidget*, const QKeyEvent& key) { return Scroll(key); }});
}

ReportActions::~ReportActions() = default;

void ReportActions::Show(QString text, std::unique_ptr<PrintedReport> report) {
  text_ = std::move(text);
  report_ = std::move(report);
}

void ReportActions::Print() {
  PreviewReport(*report_, printing_, form_);
}

void ReportActions::Copy() const {
  QApplication::clipboard()->setText(text_);
}

bool ReportActions::Scroll(const QKeyEvent& key) const {
  if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  QScrollBar* across = area_->horizontalScrollBar();
  QScrollBar* down = area_->verticalScrollBar();
  QScrollBar* pages = wide_ == Qt::Horizontal ? across : down;
  const auto scroll = [](QScrollBar* bar, QAbstractSlider::SliderAction action) {
    bar->triggerAction(action);
    return true;
  };
  const bool isPage = key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
  if (isPage && turn_) {
    turn_(key.key() == Qt::Key_PageUp ? -1 : 1);
    return true;
  }
  switch (key.key()) {
    case Qt::Key_Left:
      return scroll(across, QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Right:
      return scroll(across, QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_Up:
      return scroll(down, QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Down:
      return scroll(down, QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_PageUp:
      return scroll(pages, QAbstractSlider::SliderPageStepSub);
    case Qt::Key_PageDown:
      return scroll(pages, QAbstractSlider::SliderPageStepAdd);
    case Qt::Key_Home:
      return scroll(pages, QAbstractSlider::SliderToMinimum);
    case Qt::Key_End:
      return scroll(pages, QAbstractSlider::SliderToMaximum);
    default:
      return false;
  }
}

}  // namespace orvex
