#pragma once

#include <bitset>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/field_reader.h"

namespace orvex {

/// Writes values as lines "name=value". Each type is described once, by a function that hands its
/// members to an archive. RecordReader is the archive that reads them back, in the same order.
class RecordWriter {
 public:
  explicit RecordWriter(std::string& out) : out_(out) {}

  void Text(std::string_view name, std::string_view value);
  template <typename... Values>
  void Numbers(std::string_view name, const Values&... values) {
    Name(name);
    (Number(values), ...);
    out_ += "\r\n";
  }
  template <std::size_t size>
  void Bits(std::string_view name, const std::bitset<size>& bits) {
    Text(name, bits.to_string());
  }
  template <typename Value, typename Item>
  void List(std::string_view name, const std::vector<Value>& values, Item item) {
    Numbers(name, values.size());
    for (const Value& value : values) item(value);
  }
  template <typename Value, typename Item>
  void Optional(std::string_view name, const std::optional<Value>& value, Item item) {
    Numbers(name, value.has_value());
    if (value) item(*value);
  }

 private:
  void Name(std::string_view name);
  void Number(bool value) { out_ += value ? "1 " : "0 "; }
  template <typename Value>
  void Number(const Value& value) {
    constexpr std::size_t kMostDigits = 32;
    char digits[kMostDigits];
    out_.append(digits, std::to_chars(digits, digits + kMostDigits, value).ptr);
    out_ += ' ';
  }

  std::string& out_;
};

/// Reads what RecordWriter wrote. All reads throw FormatError.
class RecordReader {
 public:
  /// `text` must outlive the reader.
  explicit RecordReader(std::string_view text) : fields_(text) {}

  void Text(std::string_view name, std::string& value);
  template <typename... Values>
  void Numbers(std::string_view name, Values&... values) {
    rest_ = Value(name);
    (Number(name, values), ...);
    if (!rest_.empty()) Fail(name);
  }
  template <std::size_t size>
  void Bits(std::string_view name, std::bitset<size>& bits) {
    const std::string_view text = Value(name);
    if (text.size() != size || text.find_first_not_of("01") != std::string_view::npos) Fail(name);
    bits = std::bitset<size>(std::string(text));
  }
  /// Whatever count the text states, no more items are made than the text has lines.
  template <typename Value, typename Item>
  void List(std::string_view name, std::vector<Value>& values, Item item) {
    std::size_t count = 0;
    Numbers(name, count);
    values.clear();
    for (; count > 0; --count) item(values.emplace_back());
  }
  template <typename Value, typename Item>
  void Optional(std::string_view name, std::optional<Value>& value, Item item) {
    bool there = false;
    Numbers(name, there);
    value.reset();
    if (there) item(value.emplace());
  }

  bool AtEnd() const { return fields_.UnreadBytes() == 0; }
  /// Throws FormatError unless everything has been read.
  void End() const;
  /// Throws FormatError: the line read last has no valid value for `what`.
  [[noreturn]] void Fail(std::string_view what) const;

 private:
  std::string_view Value(std::string_view name);
  void Number(std::string_view name, bool& value);
  template <typename Value>
  void Number(std::string_view name, Value& value) {
    const char* end = rest_.data() + rest_.size();
    const auto [stop, error] = std::from_chars(rest_.data(), end, value);
    if (error != std::errc() || stop == end || *stop != ' ') Fail(name);
    if constexpr (std::floating_point<Value>) {
      if (!std::isfinite(value)) Fail(name);
    }
    rest_.remove_prefix(static_cast<std::size_t>(stop - rest_.data()) + 1);
  }

  FieldReader fields_;
  std::string_view rest_;
};

}  // namespace orvex
