#include "ui/widgets/Announce.h"

#include <QAccessible>
#include <QWidget>

namespace orvex {

void Announce(QWidget& source, const QString& text) {
  source.setAccessibleDescription(text);  // which tells readers of the change
  QAccessibleEvent alert(&source, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace orvex
