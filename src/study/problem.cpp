#include "study/problem.h"

#include "store/printable_text.h"

namespace orvex {

std::string Problem::Text() const {
  std::string place = Printable(file.native()) + ":";
  if (line > 0) place += std::to_string(line) + ":";
  return place + " " + text;
}

}  // namespace orvex
