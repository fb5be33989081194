#include "study/reading_with_warnings.h"

#include <string>

namespace orvex {

bool ReadingWithWarnings::ContinueWithEarlierVersion() {
  if (warn_) warn_(kEarlierVersionText);
  return true;
}

void ReadingWithWarnings::FirstSegmentRepaired(int ep) {
  if (warn_) warn_(InconsistentText(ep) + " The episode's activity is taken.");
}

void ReadingWithWarnings::TextAfterLastQuestion(int line, std::string_view /*text*/) {
  if (warn_) warn_("text after the last question, line " + std::to_string(line));
}

}  // namespace orvex
