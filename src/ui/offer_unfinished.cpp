#include "ui/offer_unfinished.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "recovery/unended_class.h"
#include "recovery/unfinished.h"
#include "recovery/unsaved_files.h"
#include "start/field_notes_file.h"

namespace orvex {

void OfferUnfinishedWork(const Services& services) {
  std::vector<Unfinished> all = UnendedClasses(services);
  std::ranges::move(UnsavedFiles(services, EditFieldNotes), std::back_inserter(all));
  OfferUnfinished(services.prompter, std::move(all));
}

}  // namespace orvex
