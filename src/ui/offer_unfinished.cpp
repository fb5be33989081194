#include "ui/offer_unfinished.h"

#include "observe/unended_class.h"
#include "store/unfinished.h"

namespace orvex {

void OfferUnfinishedWork(const Services& services) {
  OfferUnfinished(services.prompter, UnendedClasses(services));
}

}  // namespace orvex
