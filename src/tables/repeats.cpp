#include "tables/repeats.h"

#include <unordered_map>
#include <utility>

#include "store/file_error.h"
#include "store/numbers.h"
#include "store/printable_text.h"
#include "study/file_numbers.h"

namespace orvex {
namespace {

/// What the files of one observation have in common: the numbers in their names, without leading
/// zeros, or else the observation's name.
std::string KeyOf(const ListedFile& file) {
  FileNumbers numbers;
  try {
    numbers = NumbersOf(file.path);
  } catch (const FileError&) {
    return file.name;
  }
  std::string key;
  for (const std::string* part : {&numbers.school, &numbers.classNum, &numbers.observation}) {
    const auto number = IdentityNumber(*part);
    key += (number ? std::to_string(*number) : *part) + "-";
  }
  return key;
}

}  // namespace

std::vector<Repeat> RepeatsIn(const FileList& list) {
  std::vector<Repeat> repeats;
  std::unordered_map<std::string, const ListedFile*> firsts;
  for (const ListedFile& file : list.files) {
    const auto [known, isNew] = firsts.try_emplace(KeyOf(file), &file);
    if (isNew) continue;
    const ListedFile& first = *known->second;
    const std::string place =
        first.source == file.source ? "line " + std::to_string(first.line) : PlaceOf(first, list);
    std::string text = Printable(file.name);
    if (first.line == 0) {
      text += " has the same numbers as " + Printable(first.path.native());
    } else if (file.name == first.name) {
      text += " is in " + place + " already";
    } else {
      text += " has the same numbers as " + Printable(first.name) + " in " + place;
    }
    repeats.push_back({&file, std::move(text)});
  }
  return repeats;
}

}  // namespace orvex
