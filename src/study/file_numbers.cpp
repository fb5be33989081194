#include "study/file_numbers.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "store/file_error.h"
#include "store/numbers.h"
#include "store/printable_text.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// True when two numbers are equal as numbers: "05" and "5".
bool IsSameNumber(std::string_view text, std::string_view other) {
  const auto number = IdentityNumber(text);
  return text == other || (number && number == IdentityNumber(other));
}

bool LeavesItsColumn(char c) {
  return c == ',' || c == '"' || static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

}  // namespace

FileNumbers NumbersOf(const fs::path& file) {
  const std::string name = file.filename().string();
  const std::size_t first = name.find('-');
  const std::size_t second = first == std::string::npos ? first : name.find('-', first + 1);
  if (second == std::string::npos) {
    throw FileError(file, "expected a name with school, class and observation, like 5-12-3");
  }
  const std::size_t point = std::min(name.find('.', second + 1), name.size());
  if (std::ranges::any_of(name.substr(0, point), LeavesItsColumn)) {
    throw FileError(file, "expected a name without commas, quotes and control characters");
  }
  return {name.substr(0, first), name.substr(first + 1, second - first - 1),
          name.substr(second + 1, point - second - 1)};
}

std::optional<std::string> OtherNumbers(const fs::path& file, const Identity& identity) {
  FileNumbers numbers;
  try {
    numbers = NumbersOf(file);
  } catch (const FileError&) {
    return std::nullopt;  // not a name we gave
  }
  if (IsSameNumber(numbers.school, identity.SchoolNum) &&
      IsSameNumber(numbers.classNum, identity.ClassNum) &&
      IsSameNumber(numbers.observation, identity.ObservNum)) {
    return std::nullopt;
  }
  return "the identity line says " + Printable(identity.ClassId());
}

void WarnOfOtherNumbers(const fs::path& file, const Identity& identity, const Warn& warn) {
  const auto warning = OtherNumbers(file, identity);
  if (warning && warn) warn(*warning);
}

}  // namespace orvex
