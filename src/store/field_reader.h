#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvex {

/// One field or line that was read.
struct ReadField {
  std::string_view what;     ///< as it was asked for
  std::string_view value;    ///< as it was returned
  std::string_view dropped;  ///< what stands between its closing quote and the comma
  std::size_t position = 0;  ///< where it begins in the text
};

/// Reads a text as one stream of comma-separated fields and whole lines. CR LF ends a line, or LF
/// in a text that holds no CR LF at all; the last line may lack its end, or half of it. All reads
/// throw FormatError, which names the place, what was expected and what was found, at the end of
/// the text and where the field is not what it should be. `what` is a noun phrase for the message
/// ("the school number"). What is returned points into the text.
class FieldReader {
 public:
  /// `text` must outlive the reader and what it returns.
  explicit FieldReader(std::string_view text);
  /// Puts down in `trace` what is read from here on.
  void Trace(std::vector<ReadField>& trace) { trace_ = &trace; }

  /// The next field: blanks around it dropped, without its quotes, ended by a comma or a line end.
  std::string_view Field(std::string_view what);
  /// The rest of the line.
  std::string_view Line(std::string_view what);
  /// A number of any size, which is not kept.
  void SkipNumber(std::string_view what);
  /// A number that fits a single.
  float Single(std::string_view what);
  /// A number rounded to a whole one, a half to the even neighbour, that must fit 16 bits.
  std::int16_t Integer(std::string_view what);

  /// Says that what was read last is not `expected`. `found` is the part of it to be named; all of
  /// it when there is none.
  [[noreturn]] void Fail(const std::string& expected, std::string_view found = {}) const;

  /// The line that the last read began in, counted from 1 as an editor would: by every LF.
  int LineNumber() const;
  /// How many bytes of the text have not been read.
  std::size_t UnreadBytes() const { return text_.size() - position_; }
  /// What has not been read, from its first text on: blanks and line ends are none.
  std::string_view UnreadText() const;
  /// The line in which `part` of the text begins.
  int LineOf(std::string_view part) const;

 private:
  /// What is left of the line; at the end of the text there is none.
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
  std::size_t stop_ = 0;        ///< where the line's text ends
  std::size_t fieldStart_ = 0;  ///< where the last read began
  int field_ = 0;               ///< of its line the last read took; 0 for a line
  int nextField_ = 1;
  std::string_view found_;  ///< what the last read gave
  /// The first quote that takes the fields behind it in, as it is not closed: a field of a line.
  std::size_t unclosedStart_ = 0;
  int unclosedField_ = 0;
  std::vector<ReadField>* trace_ = nullptr;
};

}  // namespace orvex
