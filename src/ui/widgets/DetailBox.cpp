#include "ui/widgets/DetailBox.h"

namespace orvex {
namespace {

constexpr int kLines = 3;

}  // namespace

DetailBox::DetailBox(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void DetailBox::Show(const QString& text) {
  if (toPlainText() != text) setPlainText(text);
}

QSize DetailBox::sizeHint() const {
  const int margins = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  return {QPlainTextEdit::sizeHint().width(), kLines * fontMetrics().lineSpacing() + margins};
}

}  // namespace orvex
