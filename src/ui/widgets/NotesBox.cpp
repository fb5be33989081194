#include "ui/widgets/NotesBox.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <memory>

namespace orvex {
namespace {

constexpr qsizetype kPiece = 2048;
constexpr qsizetype kMostWhole = 2 * kPiece;  // longer lines are shown in pieces

/// The format that marks a break between pieces. It survives undo. Qt does not pass an object type
/// on to text typed after it, so a line that the user ends there becomes a real line.
QTextCharFormat BreakFormat() {
  QTextCharFormat format;
  format.setObjectType(QTextFormat::UserObject);
  return format;
}

/// Where the piece of `line` that starts at `from` ends: after a blank, or else between two
/// characters.
qsizetype EndOfPiece(QStringView line, qsizetype from) {
  if (line.size() - from <= kPiece) return line.size();
  const QStringView piece = line.sliced(from, kPiece);
  const qsizetype blank = piece.lastIndexOf(QLatin1Char(' '));
  if (blank >= kPiece / 2) return from + blank + 1;
  QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, piece.data(), piece.size());
  characters.setPosition(kPiece - 1);
  const qsizetype boundary =
      characters.isAtBoundary() ? kPiece - 1 : characters.toPreviousBoundary();
  return from + (boundary > 0 ? boundary : kPiece);
}

void InsertLine(QTextCursor& cursor, const QString& line) {
  if (line.size() <= kMostWhole) return cursor.insertText(line, {});
  for (qsizetype from = 0; from < line.size();) {
    if (from > 0) cursor.insertBlock({}, BreakFormat());
    const qsizetype end = EndOfPiece(line, from);
    cursor.insertText(line.sliced(from, end - from), {});
    from = end;
  }
}

/// Replaces the selection with `text` in a single undo step.
void Insert(QTextCursor cursor, QString text) {
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  const QStringList lines = text.split(QLatin1Char('\n'));
  for (qsizetype i = 0; i < lines.size(); ++i) {
    if (i > 0) cursor.insertBlock({}, {});
    InsertLine(cursor, lines[i]);
  }
  cursor.endEditBlock();
}

}  // namespace

void NotesBox::SetNotes(const QString& notes) {
  setUndoRedoEnabled(false);
  clear();
  Insert(textCursor(), notes);
  setUndoRedoEnabled(true);
  document()->setModified(false);
}

QString NotesBox::Notes() const {
  return TextBetween(0, document()->characterCount(), QStringLiteral("\r\n"));
}

/// True for a piece that continues the line of the previous one.
bool NotesBox::GoesOn(const QTextBlock& block) {
  return block.isValid() && block.position() > 0 &&
         block.charFormat().objectType() == QTextFormat::UserObject;
}

/// The exact text, including no-break spaces, which Qt's plain text would turn into blanks.
QString NotesBox::TextBetween(int from, int to, const QString& lineEnd) const {
  QString text;
  for (QTextBlock block = document()->findBlock(from); block.isValid() && block.position() <= to;
       block = block.next()) {
    if (block.position() > from && !GoesOn(block)) text += lineEnd;
    const int first = std::max(from - block.position(), 0);
    text += block.text().mid(first, to - block.position() - first);
  }
  return text;
}

void NotesBox::keyPressEvent(QKeyEvent* event) {
  // A break between pieces is not a character, so a deletion must skip it.
  QTextCursor cursor = textCursor();
  if (!cursor.hasSelection()) {
    while (event->key() == Qt::Key_Backspace && cursor.atBlockStart() && GoesOn(cursor.block())) {
      cursor.movePosition(QTextCursor::PreviousCharacter);
    }
    while (event->key() == Qt::Key_Delete && cursor.atBlockEnd() && GoesOn(cursor.block().next())) {
      cursor.movePosition(QTextCursor::NextCharacter);
    }
    if (cursor != textCursor()) setTextCursor(cursor);
  }
  QPlainTextEdit::keyPressEvent(event);
}

void NotesBox::insertFromMimeData(const QMimeData* source) {
  if (!source->hasText()) return;
  Insert(textCursor(), source->text());
  ensureCursorVisible();
}

QMimeData* NotesBox::createMimeDataFromSelection() const {
  const QTextCursor cursor = textCursor();
  auto selected = std::make_unique<QMimeData>();
  selected->setText(
      TextBetween(cursor.selectionStart(), cursor.selectionEnd(), QStringLiteral("\n")));
  return selected.release();
}

}  // namespace orvex
