#pragma once

#include <QPlainTextEdit>
#include <QString>

class QTextBlock;
class QTextCursor;

namespace orvex {

/// A box for typing notes. Each key press costs time in proportion to the paragraph, so a very long
/// line is shown as several paragraphs. The breaks between these pieces are not part of the text.
class NotesBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  using QPlainTextEdit::QPlainTextEdit;

  /// Shows `notes`, whose lines end with LF or CR LF, as an unmodified text with nothing to undo.
  void SetNotes(const QString& notes);
  /// The text, its lines separated by CR LF.
  QString Notes() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
  QMimeData* createMimeDataFromSelection() const override;

 private:
  static bool GoesOn(const QTextBlock& block);
  QString TextBetween(int from, int to, const QString& lineEnd) const;
};

}  // namespace orvex
