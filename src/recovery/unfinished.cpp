#include "recovery/unfinished.h"

#include <cstddef>
#include <optional>

namespace orvex {
namespace {

/// Asks what to do with which item. Nothing when all are left for later.
std::optional<UnfinishedChoice> Ask(Prompter& prompter, const std::vector<Unfinished>& all) {
  if (all.size() == 1) {
    return UnfinishedChoice{.item = 0, .answer = prompter.Ask(all[0].item.question)};
  }
  std::vector<UnfinishedItem> items;
  items.reserve(all.size());
  for (const Unfinished& unfinished : all) items.push_back(unfinished.item);
  return prompter.AskUnfinished(items);
}

}  // namespace

bool OfferUnfinished(Prompter& prompter, std::vector<Unfinished> all) {
  while (!all.empty()) {
    const auto choice = Ask(prompter, all);
    if (!choice) return false;
    const Unfinished chosen = all[choice->item];
    all.erase(all.begin() + static_cast<std::ptrdiff_t>(choice->item));
    if (choice->answer == Answer::yes && chosen.takeUp()) return true;
    if (choice->answer == Answer::no) chosen.close();
  }
  return false;
}

}  // namespace orvex
