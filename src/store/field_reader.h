#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvex {

/// One field or line that was read.
struct ReadField {
  std::string_view what;     ///< the `what` that it was read with
  std::string_view value;    ///< as it was returned
  std::string_view dropped;  ///< text between its closing quote and the comma
  std::size_t position = 0;  ///< where it begins in the text, in bytes
};

/// Reads a text as one stream of comma-separated fields and whole lines. A line ends with CR LF, or
/// with LF in a text that holds no CR LF at all; the last line may lack its end, or half of it. All
/// reads throw FormatError at the end of the text and when a field is not what it should be; the
/// message names the place, what was expected and what was found. `what` is a noun phrase for that
/// message ("the school number"). Results point into the text.
class FieldReader {
 public:
  /// `text` must outlive the reader and what it returns.
  explicit FieldReader(std::string_view text);
  /// Records in `trace` what is read from here on.
  void Trace(std::vector<ReadField>& trace) { trace_ = &trace; }

  /// The next field, up to a comma or a line end, without its quotes or the blanks around it.
  std::string_view Field(std::string_view what);
  /// The rest of the line.
  std::string_view Line(std::string_view what);
  /// Reads past a number of any size.
  void SkipNumber(std::string_view what);
  /// A number that fits single precision.
  float Single(std::string_view what);
  /// A number that fits 16 bits after rounding to a whole one, with a half to the even neighbour.
  std::int16_t Integer(std::string_view what);

  /// Throws FormatError: what was read last is not `expected`. `found` is the part of it to name;
  /// without one, all of it is named.
  [[noreturn]] void Fail(const std::string& expected, std::string_view found = {}) const;

  /// The line in which the last read began, counted from 1. Every LF counts, as in an editor.
  int LineNumber() const;
  /// How many bytes of the text have not been read.
  std::size_t UnreadBytes() const { return text_.size() - position_; }
  /// What has not been read, without the blanks and line ends before it.
  std::string_view UnreadText() const;
  /// The line in which `part` of the text begins, counted from 1.
  int LineOf(std::string_view part) const;

 private:
  /// The rest of the line. Fails at the end of the text.
  std::string_view Rest(std::string_view what);
  void NextLine();
  double Number(std::string_view what);
  std::size_t LineStop() const;
  int LineOf(std::size_t position) const;
  void NoteUnclosedQuote();
  std::string UnclosedQuote() const;

  std::string_view text_;
  std::string_view lineEnd_;
  std::size_t position_ = 0;
  std::size_t stop_ = 0;        ///< where the text of the line ends
  std::size_t fieldStart_ = 0;  ///< where the last read began
  int field_ = 0;               ///< the last field's number in its line; 0 for a whole line
  int nextField_ = 1;
  std::string_view found_;  ///< what the last read returned
  /// The field with the first quote that is not closed and so takes in the fields after it: where
  /// it begins, and its number within its line (0 when there is none).
  std::size_t unclosedStart_ = 0;
  int unclosedField_ = 0;
  std::vector<ReadField>* trace_ = nullptr;
};

}  // namespace orvex
