#include "desk/elapsed_time.h"

#include <optional>

#include "desk/prompter.h"
#include "model/texts.h"
#include "model/time_of_day.h"

namespace orvex {

std::int32_t ElapsedSeconds(float start, float now, Prompter& prompter) {
  const std::optional<std::int32_t> seconds = SecondsOfDay(now - start);
  if (!seconds) prompter.Tell(Say(Text::functionOverflow));
  return seconds.value_or(0);
}

}  // namespace orvex
