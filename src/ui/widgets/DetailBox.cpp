#include "ui/widgets/DetailBox.h"

namespace orvex {

DetailBox::DetailBox(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
}

void DetailBox::Show(const QString& text) {
  if (toPlainText() != text) setPlainText(text);
}

QSize DetailBox::SizeFor(int lines) const {
  const int margins = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  return {QPlainTextEdit::sizeHint().width(), lines * fontMetrics().lineSpacing() + margins};
}

}  // namespace orvex
