#pragma once

#include <QPlainTextEdit>
#include <QString>

class QTextBlock;
class QTextCursor;

namespace orvex {

/// The box that notes are typed in. A key costs as much as its line is long; so a very long line is
/// shown in pieces, a paragraph each, and the breaks between them are none of the text's.
class NotesBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  using QPlainTextEdit::QPlainTextEdit;

  /// `notes`: lines separated by LF or CR LF. They count as unchanged, and there is nothing to
  /// undo.
  void SetNotes(const QString& notes);
  /// Lines separated by CR LF.
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
