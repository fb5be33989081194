#include "model/texts.h"

#include <gtest/gtest.h>

namespace orvex {
namespace {

TEST(Texts, ValuesAreFilledInOnceAndAsTheyAre) {
  const std::pair<std::string, const char*> cases[] = {
      {Say(Text::stoppedAt, {3, "%1 & %3.lst", "%4", "50%"}),
       "It had come to line 3 of %1 & %3.lst: %4.\n50%"},
      {Say(Text::logTrouble, {""}),
       "Trouble with the session log (). What it lacks is kept and tried again."},
      {Counted(0, Text::oneFile, Text::files), "0 files"},
      {Counted(1, Text::oneFile, Text::files), "1 file"},
  };
  for (const auto& [said, expected] : cases) EXPECT_EQ(said, expected);
}

}  // namespace
}  // namespace orvex
