#pragma once

#include <QObject>

class QKeyEvent;

namespace orvex {

/// Makes keys that do something count only once while they are held down: Enter, Space on a button,
/// Down in a box, Ctrl+N, function keys and mnemonics. A thumb resting on "&Last" must not remove
/// all questions of an episode. Install it on the application.
class HeldKeys : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool IsRepeat(const QKeyEvent& press) const;

  int releasedKey_ = 0;
  quint64 releasedAt_ = 0;
};

}  // namespace orvex
