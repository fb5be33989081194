#pragma once

#include <cstdint>
#include <string_view>

namespace orvex {

/// Takes the values of a row, one for each variable, in their order.
class Cells {
 public:
  virtual ~Cells() = default;
  /// A text somebody typed.
  virtual void Text(std::string_view text) = 0;
  /// A code of ours, a date or a time; missing when it is empty.
  virtual void Code(std::string_view code) = 0;
  virtual void Number(std::int64_t number) = 0;
  virtual void Number(float number) = 0;
  /// A number of seconds, as a whole one.
  virtual void Seconds(double seconds) = 0;
  virtual void Missing() = 0;
};

}  // namespace orvex
