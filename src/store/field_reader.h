#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orvex {

/// Reads a text as one stream of comma-separated fields and whole lines. CR LF ends a line, or LF
/// in a text that holds no CR LF at all; the last line may lack its end, or half of it. All reads
/// throw FormatError, which names the line and what was expected, at the end of the text and where
/// the field is not what it should be. `what` is a noun phrase for the message ("the school
/// number"). What is returned points into the text.
class FieldReader {
 public:
  /// `text` must outlive the reader and what it returns.
  explicit FieldReader(std::string_view text);

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

  /// The line that the last read began in, counted from 1 as an editor would: by every LF.
  int LineNumber() const;
  /// How many bytes of the text have not been read.
  std::size_t Left() const { return text_.size() - position_; }

 private:
  /// What is left of the line; at the end of the text there is none.
  std::string_view Rest(std::string_view what);
  void NextLine();
  double Number(std::string_view what);
  [[noreturn]] void Fail(std::string_view what, const char* detail) const;
  std::size_t LineStop() const;

  std::string_view text_;
  std::string_view lineEnd_;
  std::size_t position_ = 0;
  std::size_t stop_ = 0;        ///< where the line's text ends
  std::size_t fieldStart_ = 0;  ///< where the last read began
};

}  // namespace orvex
