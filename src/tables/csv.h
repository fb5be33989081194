#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvex {

/// Appends cells to the text of a comma-separated table, by RFC 4180.
class Csv {
 public:
  explicit Csv(std::string& text) : text_(text) {}

  /// A text somebody typed. One that a spreadsheet would run as a formula gets an apostrophe in
  /// front; control characters, which readers of tables choke on, become blanks. An empty one is an
  /// empty cell.
  Csv& Text(std::string_view text);
  /// A code or a name of ours, with nothing in it to be quoted.
  Csv& Code(std::string_view code);
  Csv& Number(std::int64_t number);
  Csv& Number(float number);
  /// A number of seconds, which is a whole one.
  Csv& Seconds(double seconds);
  Csv& Missing();
  void EndLine();

 private:
  void Separate();

  std::string& text_;
  bool begun_ = false;  ///< the line has a cell
};

/// "mm-dd-yyyy" as "yyyy-mm-dd"; empty when it is no date.
std::string IsoDate(std::string_view date);
/// A time of day as "hh:mm:ss"; empty when it is none.
std::string IsoTime(std::string_view time);

}  // namespace orvex
