#pragma once

#include <QPlainTextEdit>
#include <QString>

namespace orvex {

/// A few lines that say more of the current row of a table; on a small screen a single one. The
/// text can be selected and scrolled.
class DetailBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit DetailBox(QWidget* parent = nullptr);

  /// Shows `text` from its start. Does nothing if it is shown already.
  void Show(const QString& text);

  QSize sizeHint() const override { return SizeFor(3); }
  QSize minimumSizeHint() const override { return SizeFor(1); }

 private:
  QSize SizeFor(int lines) const;
};

}  // namespace orvex
