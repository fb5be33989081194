#include "fuzz/checks.h"
#include "study/problem.h"
#include "tables/file_list.h"

namespace orvex::fuzz {
namespace {

/// A list with the same names on the same lines.
std::string Written(const std::vector<ListedFile>& files) {
  std::string text;
  int line = 1;
  for (const ListedFile& file : files) {
    for (; line < file.line; ++line) text += "\r\n";
    text += " " + file.name;  // a name may begin with what looks like a byte order mark
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
      Accepted(bytes, [](std::string_view text) { return ParseFileList(std::string(text)); });
  if (!accepted) return std::nullopt;
  const auto& files = *accepted;
  const std::string written = Written(files);
  const auto again =
      Accepted(written, [](std::string_view text) { return ParseFileList(std::string(text)); });
  if (!again) return std::nullopt;  // with other blanks, it may look like another kind of file
  Require(std::ranges::equal(files, *again,
                             [](const ListedFile& one, const ListedFile& other) {
                               return one.line == other.line && one.name == other.name;
                             }),
          "a list's names come back on their lines");
  for (const ListedFile& file : files) CheckNumbersOf(file.name);
  return written;
}

}  // namespace orvex::fuzz
