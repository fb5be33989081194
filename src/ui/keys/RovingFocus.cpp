#include "ui/keys/RovingFocus.h"

#include <QKeyEvent>
#include <QStringList>
#include <algorithm>
#include <cstddef>
#include <utility>

#include "ui/show.h"

namespace orvex {
namespace {

/// How long a typed beginning waits for its next letter, in milliseconds.
constexpr quint64 kPause = 1000;

/// True if each part of `text` between slashes begins the same part of `caption`: "su/m" is
/// "Supervised/Monitoring".
bool Abbreviates(const QString& text, const QString& caption) {
  const QStringList typed = text.split(QLatin1Char('/'));
  const QStringList parts = caption.split(QLatin1Char('/'));
  if (typed.size() > parts.size()) return false;
  for (qsizetype part = 0; part < typed.size(); ++part) {
    if (!parts[part].startsWith(typed[part], Qt::CaseInsensitive)) return false;
  }
  return true;
}

}  // namespace

RovingFocus::RovingFocus(std::vector<QAbstractButton*> buttons, QObject* parent, int across)
    : QObject(parent), buttons_(std::move(buttons)), across_(across) {
  for (QAbstractButton* button : buttons_) button->installEventFilter(this);
  SetTabStop(0);
}

QAbstractButton* RovingFocus::Button(int position) const {
  return buttons_.at(static_cast<std::size_t>(position));
}

int RovingFocus::PositionOf(const QObject* button) const {
  const auto found = std::find(buttons_.begin(), buttons_.end(), button);
  return static_cast<int>(found - buttons_.begin());
}

void RovingFocus::Focus(int position) {
  SetTabStop(position);
  FocusVisibly(Button(position));
}

void RovingFocus::SetEntry(int position) {
  entry_ = position;
  if (!HasFocus()) SetTabStop(entry_);
}

bool RovingFocus::HasFocus() const {
  return std::ranges::any_of(buttons_, &QWidget::hasFocus);
}

void RovingFocus::SetTabStop(int position) {
  for (int i = 0; i < Count(); ++i) {
    Button(i)->setFocusPolicy(i == position ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

bool RovingFocus::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) SetTabStop(PositionOf(watched));
  if (event->type() == QEvent::FocusOut) SetTabStop(entry_);
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::KeypadModifier;
  if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier) return false;
  return MoveOnKey(PositionOf(watched), *key);
}

/// Moves the focus by `steps`. Single steps wrap around; a move to the next column stops at the
/// edge.
bool RovingFocus::MoveBy(int from, int steps) {
  const int to = from + steps;
  if (steps == 1 || steps == -1) {
    Focus((to + Count()) % Count());
  } else if (to >= 0 && to < Count()) {
    Focus(to);
  }
  return true;
}

bool RovingFocus::MoveOnKey(int from, const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Down:
      return MoveBy(from, 1);
    case Qt::Key_Up:
      return MoveBy(from, -1);
    case Qt::Key_Right:
      return MoveBy(from, across_);
    case Qt::Key_Left:
      return MoveBy(from, -across_);
    case Qt::Key_Home:
      Focus(0);
      return true;
    case Qt::Key_End:
      Focus(Count() - 1);
      return true;
    default:
      return MoveToTyped(from, key);
  }
}

/// Takes a letter, sign or digit as the next one of a caption's beginning or a number, or else as
/// the first of a new one.
bool RovingFocus::MoveToTyped(int from, const QKeyEvent& key) {
  const QString letter = key.text();
  if (letter.size() != 1 || !letter.at(0).isPrint() || letter.at(0).isSpace()) {
    typed_.clear();
    return false;
  }
  const bool goesOn = from == typedTo_ && key.timestamp() - typedAt_ <= kPause;
  QString text = goesOn ? typed_ + letter : letter;
  int position = Typed(text, text.size() > 1 ? from : from + 1);
  if (position == Count() && text != letter) {
    text = letter;
    position = Typed(text, from + 1);
  }
  if (position == Count()) return false;
  typed_ = text;
  typedTo_ = position;
  typedAt_ = key.timestamp();
  Focus(position);
  return true;
}

/// The button that `text` leads to: by its number, or the next from `first` on whose caption it
/// abbreviates. Count() for none.
int RovingFocus::Typed(const QString& text, int first) const {
  bool isNumber = false;
  const int number = text.toInt(&isNumber);
  if (isNumber) return counted_ && number >= 1 && number <= Count() ? number - 1 : Count();
  for (int step = 0; step < Count(); ++step) {
    const int position = (first + step) % Count();
    if (Abbreviates(text, Button(position)->text())) return position;
  }
  return Count();
}

}  // namespace orvex
