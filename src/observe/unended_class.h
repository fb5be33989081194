#pragma once

#include <filesystem>

#include "store/services.h"

namespace orvex {

/// What came of the offer of a class that was not ended.
enum class OfferResult {
  later,    ///< it is kept as it was
  takenUp,  ///< its forms are shown
  closed,   ///< it is stored, and no longer kept
};

/// Offers the class kept at `path`: to go on observing it, to close it into its files as it stands,
/// or to leave it for later. The user is told when it cannot be read.
OfferResult OfferUnendedClass(const Services& services, const std::filesystem::path& path);

/// The same for every class that is kept in the data folder and does not run in another Orvex,
/// until one is taken up.
void OfferUnendedClasses(const Services& services);

}  // namespace orvex
