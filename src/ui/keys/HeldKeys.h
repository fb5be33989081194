#pragma once

#include <QObject>

class QKeyEvent;

namespace orvex {

/// Makes a key that does something count once, however long it is held down: Enter, Space on a
/// button, Down in a box, Ctrl+N, every function key and every mnemonic. A thumb that rests on
/// "&Last" must not remove a whole episode's questions. Installed on the application.
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
