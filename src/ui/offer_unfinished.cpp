#include "ui/offer_unfinished.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "observe/unended_class.h"
#include "start/unsaved_files.h"
#include "store/unfinished.h"

namespace orvex {

void OfferUnfinishedWork(const Services& services) {
  std::vector<Unfinished> all = UnendedClasses(services);
  std::ranges::move(UnsavedFiles(services), std::back_inserter(all));
  OfferUnfinished(services.prompter, std::move(all));
}

}  // namespace orvex
