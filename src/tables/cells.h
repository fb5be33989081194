#pragma once

#include <cstdint>
#include <string_view>

namespace orvex {

/// Receives the values of a row, one for each variable, in order.
class Cells {
 public:
  virtual ~Cells() = default;
  /// A text that somebody typed.
  virtual void Text(std::string_view text) = 0;
  /// One of our own codes, a date or a time; missing if it is empty.
  virtual void Code(std::string_view code) = 0;
  virtual void Number(std::int64_t number) = 0;
  virtual void Number(float number) = 0;
  /// Seconds, rounded to a whole number.
  virtual void Seconds(double seconds) = 0;
  virtual void Missing() = 0;
};

}  // namespace orvex
