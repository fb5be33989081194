#include "ui/forms/dlgTimer.h"

#include <QKeyEvent>
#include <QTimer>

#include "ui/show.h"
#include "ui_dlgTimer.h"

namespace orvex {
namespace {

constexpr int kSecond = 1000;

bool IsModifier(int key) {
  return key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Shift ||
         key == Qt::Key_Meta || key == Qt::Key_AltGr;
}

}  // namespace

dlgTimer::dlgTimer(const Clock& clock, QWidget* parent)
    : QDialog(parent),
      stopwatch_(clock),
      ui_(std::make_unique<Ui::dlgTimer>()),
      timer1_(new QTimer(this)) {
  ui_->setupUi(this);
  timer1_->setObjectName(QStringLiteral("Timer1"));
  timer1_->setInterval(kSecond);
  connect(timer1_, &QTimer::timeout, this, [this] {
    stopwatch_.Tick();
    Refresh();
  });
  connect(ui_->Command1, &QPushButton::clicked, this, &dlgTimer::Start);
  connect(ui_->CancelButton, &QPushButton::clicked, this, &QWidget::close);
  for (QPushButton* button : {ui_->Command1, ui_->CancelButton}) button->installEventFilter(this);
}

dlgTimer::~dlgTimer() = default;

void dlgTimer::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    stopwatch_.Reset();
    timer1_->stop();
    Refresh();
  }
  QDialog::showEvent(event);
}

void dlgTimer::Start() {
  stopwatch_.Start();
  timer1_->start();
  Refresh();
}

void dlgTimer::Refresh() {
  ShowText(ui_->Label2, stopwatch_.ElapsedText());
  ShowText(ui_->Label3, stopwatch_.TotalText());
  ShowText(ui_->Label4, stopwatch_.PreviousText());
}

bool dlgTimer::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  // Any key works, even one that would press the button or move the focus.
  keyPressEvent(static_cast<QKeyEvent*>(event));
  return true;
}

void dlgTimer::keyPressEvent(QKeyEvent* event) {
  const bool held = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  if (event->key() == Qt::Key_C && held) {
    close();
    return;
  }
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter || IsModifier(event->key()) || event->isAutoRepeat()) return;
  Start();
}

}  // namespace orvex
