#include "study/problem.h"

#include "store/printable_text.h"

namespace orvex {

std::string Problem::Text() const {
  std::string place = Printable(file.native()) + ":";
  if (line > 0) place += std::to_string(line) + ":";
  const std::string list =
      listLine > 0 ? " (line " + std::to_string(listLine) + " of the list)" : "";
  return place + " " + text + list;
}

}  // namespace orvex
