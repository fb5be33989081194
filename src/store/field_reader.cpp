#include "store/field_reader.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "store/format_error.h"
#include "store/numbers.h"

namespace orvex {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

}  // namespace

FieldReader::FieldReader(std::string_view text)
    : text_(text), lineEnd_(text.find("\r\n") == kNone ? "\n" : "\r\n") {
  // The last line may lack its end, or half of it.
  if (lineEnd_.size() > 1 && text_.ends_with('\r')) text_.remove_suffix(1);
  stop_ = LineStop();
}

std::size_t FieldReader::LineStop() const {
  return std::min(text_.find(lineEnd_, position_), text_.size());
}

int FieldReader::LineNumber() const {
  const std::string_view before = text_.substr(0, fieldStart_);
  return static_cast<int>(1 + std::count(before.begin(), before.end(), '\n'));
}

void FieldReader::Fail(std::string_view what, const char* detail) const {
  throw FormatError(LineNumber(), std::string(what) + detail);
}

std::string_view FieldReader::Rest(std::string_view what) {
  fieldStart_ = position_;
  if (position_ == text_.size()) Fail(what, ", not the end of the file");
  return text_.substr(position_, stop_ - position_);
}

void FieldReader::NextLine() {
  if (stop_ == text_.size()) {
    position_ = stop_;
    return;
  }
  position_ = stop_ + lineEnd_.size();
  stop_ = LineStop();
}

std::string_view FieldReader::Line(std::string_view what) {
  const std::string_view line = Rest(what);
  NextLine();
  return line;
}

std::string_view FieldReader::Field(std::string_view what) {
  const std::string_view rest = Rest(what);
  // Fields are a few characters long: plain loops are faster here than searches.
  const auto skip = [&rest](std::size_t from, auto goOn) {
    while (from < rest.size() && goOn(rest[from])) ++from;
    return from;
  };
  std::size_t start = skip(0, [](char c) { return c == ' '; });
  const bool quoted = start < rest.size() && rest[start] == '"';
  if (quoted) ++start;
  std::size_t end = skip(start, [quoted](char c) { return c != (quoted ? '"' : ','); });
  const std::size_t comma = skip(end, [](char c) { return c != ','; });
  while (!quoted && end > start && rest[end - 1] == ' ') --end;
  if (comma == rest.size()) {
    NextLine();
  } else {
    position_ += comma + 1;
  }
  return rest.substr(start, end - start);
}

void FieldReader::SkipNumber(std::string_view what) {
  if (!IsNumber(Field(what))) Fail(what, "");
}

double FieldReader::Number(std::string_view what) {
  const auto number = ParseNumber(Field(what));
  if (!number) Fail(what, "");
  return *number;
}

float FieldReader::Single(std::string_view what) {
  const double number = Number(what);
  if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max())) {
    Fail(what, " of single precision");
  }
  return static_cast<float>(number);
}

std::int16_t FieldReader::Integer(std::string_view what) {
  const auto number = ToInt16(Number(what));
  if (!number) Fail(what, " from -32768 to 32767");
  return *number;
}

}  // namespace orvex
