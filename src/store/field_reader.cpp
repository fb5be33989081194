#include "store/field_reader.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "store/format_error.h"
#include "store/numbers.h"
#include "store/printable_text.h"

namespace orvex {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr const char* kANumber = " (a number)";

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

int FieldReader::LineOf(std::size_t position) const {
  const std::string_view before = text_.substr(0, position);
  return static_cast<int>(1 + std::count(before.begin(), before.end(), '\n'));
}

int FieldReader::LineOf(std::string_view part) const {
  return LineOf(static_cast<std::size_t>(part.data() - text_.data()));
}

std::string_view FieldReader::UnreadText() const {
  // An old system may have marked the end of the file with Ctrl+Z.
  const std::size_t start = text_.find_first_not_of(" \t\r\n\x1A", position_);
  return text_.substr(std::min(start, text_.size()));
}

int FieldReader::LineNumber() const {
  return LineOf(fieldStart_);
}

void FieldReader::Fail(const std::string& expected, std::string_view found) const {
  std::string text = "expected " + expected;
  const std::string_view named = found.empty() ? found_ : found;
  if (fieldStart_ == text_.size()) {
    text += ", not the end of the file";
  } else {
    text += named.empty() ? ", found nothing" : ", found " + PrintableInQuotes(named);
  }
  // A field that is alone on its line is reported as the line.
  const bool alone = field_ == 1 && nextField_ == 1;
  throw FormatError(FilePlace{LineNumber(), alone ? 0 : field_}, text + UnclosedQuote());
}

/// Remembers the first unclosed quote that takes in a comma. Any other does no harm.
void FieldReader::NoteUnclosedQuote() {
  if (unclosedField_ > 0 || found_.find(',') == kNone) return;
  unclosedStart_ = fieldStart_;
  unclosedField_ = field_;
}

std::string FieldReader::UnclosedQuote() const {
  if (unclosedField_ == 0) return "";
  const FilePlace place{LineOf(unclosedStart_), unclosedField_};
  return "; the quote that opens in " + place.Text() + " is not closed";
}

std::string_view FieldReader::Rest(std::string_view what) {
  fieldStart_ = position_;
  if (position_ == text_.size()) {
    field_ = 0;
    Fail(std::string(what));
  }
  return text_.substr(position_, stop_ - position_);
}

void FieldReader::NextLine() {
  nextField_ = 1;
  if (stop_ == text_.size()) {
    position_ = stop_;
    return;
  }
  position_ = stop_ + lineEnd_.size();
  stop_ = LineStop();
}

std::string_view FieldReader::Line(std::string_view what) {
  found_ = Rest(what);
  field_ = 0;
  NextLine();
  if (trace_) trace_->push_back({what, found_, {}, fieldStart_});
  return found_;
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
  found_ = rest.substr(start, end - start);
  field_ = nextField_++;
  if (quoted && end == rest.size()) NoteUnclosedQuote();
  if (comma == rest.size()) {
    NextLine();
  } else {
    position_ += comma + 1;
  }
  if (trace_) {
    const std::size_t behind = std::min(end + (quoted ? 1 : 0), comma);
    trace_->push_back(
        {what, found_, WithoutBlanks(rest.substr(behind, comma - behind)), fieldStart_});
  }
  return found_;
}

void FieldReader::SkipNumber(std::string_view what) {
  if (!IsNumber(Field(what))) Fail(std::string(what) + kANumber);
}

double FieldReader::Number(std::string_view what) {
  const auto number = ParseNumber(Field(what));
  if (!number) Fail(std::string(what) + kANumber);
  return *number;
}

float FieldReader::Single(std::string_view what) {
  const double number = Number(what);
  if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max())) {
    Fail(std::string(what) + " of single precision");
  }
  return static_cast<float>(number);
}

std::int16_t FieldReader::Integer(std::string_view what) {
  const auto number = ToInt16(Number(what));
  if (!number) Fail(std::string(what) + " from -32768 to 32767");
  return *number;
}

}  // namespace orvex
