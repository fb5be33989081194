#pragma once

#include <string>
#include <vector>

#include "tables/file_list.h"

namespace orvex {

/// An observation that a list names again.
struct Repeat {
  const ListedFile* file = nullptr;  ///< of the list
  std::string text;                  ///< "17-17-7 is in line 1 already", safe to show on a terminal
};
/// The files that have the same name as an earlier one, or the same numbers in their names.
std::vector<Repeat> RepeatsIn(const FileList& list);

}  // namespace orvex
