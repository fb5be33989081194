#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tables/cells.h"

namespace orvex {

/// Appends cells to the text of a comma-separated table, by RFC 4180.
class Csv final : public Cells {
 public:
  explicit Csv(std::string& text) : text_(text) {}

  /// A text that a spreadsheet would run as a formula gets an apostrophe in front. An empty one is
  /// an empty cell.
  void Text(std::string_view text) override;
  /// There is nothing in `code` to be quoted.
  void Code(std::string_view code) override;
  void Number(std::int64_t number) override;
  void Number(float number) override;
  /// In as few digits as bring the number back.
  void Number(double number);
  void Seconds(double seconds) override;
  void Missing() override;
  void EndLine();

 private:
  void Separate();

  std::string& text_;
  bool begun_ = false;  ///< the current line has a cell already
};

/// `text` with blanks in place of control characters, which readers of tables choke on.
std::string WithoutControls(std::string_view text);
/// The shortest digits that bring the number back, without an exponent.
std::string DigitsOf(float number);
std::string DigitsOf(double number);
/// A number that somebody typed; nothing for any other text, and for one beyond a single.
std::optional<float> TypedSingle(std::string_view text);
/// "mm-dd-yyyy" as "yyyy-mm-dd"; empty when it is no date.
std::string IsoDate(std::string_view date);
/// Turns a time of day into "hh:mm:ss"; empty when `time` is not one.
std::string IsoTime(std::string_view time);

}  // namespace orvex
