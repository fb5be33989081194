#include "store/try_again.h"

#include <exception>

#include "model/prompter.h"

namespace orvex {

bool TryAgainAndAgain(Prompter& prompter, const std::string& question,
                      const std::function<void()>& save) {
  for (;;) {
    try {
      save();
      return true;
    } catch (const std::exception& error) {
      if (prompter.Ask({.text = question,
                        .buttons = Buttons::yesNo,
                        .defaultAnswer = Answer::yes,
                        .details = error.what()}) != Answer::yes) {
        return false;
      }
    }
  }
}

}  // namespace orvex
