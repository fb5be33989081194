#include "fuzz/checks.h"
#include "study/file_numbers.h"
#include "study/problem.h"
#include "tables/list_lines.h"

namespace orvex::fuzz {
namespace {

/// A list with the same names on the same lines.
std::string Written(const std::vector<ListLine>& lines) {
  std::string text;
  int number = 1;
  for (const ListLine& line : lines) {
    for (; number < line.number; ++number) text += "\r\n";
    text += " " + line.text;  // a name may begin with what looks like a byte order mark
  }
  return text;
}

/// Checks that the three numbers of a name are parts of it, in order.
void CheckNumbersOf(const std::string& name) {
  FileNumbers numbers;
  if (ProblemOf(name, [&] { numbers = NumbersOf(name); })) return;
  const std::string joined = numbers.school + "-" + numbers.classNum + "-" + numbers.observation;
  Require(name.find(joined) != std::string::npos, "a name's numbers are parts of it");
  Require(joined.find('/') == std::string::npos, "the folder is no part of a name's numbers");
}

}  // namespace

std::optional<std::string> CheckFileList(std::string_view bytes) {
  const auto accepted =
      Accepted(bytes, [](std::string_view text) { return ParseList(std::string(text)); });
  if (!accepted) return std::nullopt;
  const auto& lines = *accepted;
  const std::string written = Written(lines);
  const auto again =
      Accepted(written, [](std::string_view text) { return ParseList(std::string(text)); });
  if (!again) return std::nullopt;  // with other blanks, it may look like another kind of file
  Require(std::ranges::equal(lines, *again,
                             [](const ListLine& one, const ListLine& other) {
                               return one.number == other.number && one.text == other.text;
                             }),
          "a list's names come back on their lines");
  for (const ListLine& line : lines) CheckNumbersOf(line.text);
  return written;
}

}  // namespace orvex::fuzz
