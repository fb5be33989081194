#include "agreement/observer_name.h"

#include <filesystem>

#include "agreement/agreement.h"

namespace orvex {

std::string NameOfObserver(const Agreement& agreement, Side side) {
  const Agreement::Observer& observer = side == Side::first ? agreement.first : agreement.second;
  const std::string& initials = observer.identity.Initials;
  const std::string& other =
      (side == Side::first ? agreement.second : agreement.first).identity.Initials;
  const bool tells = !initials.empty() && !other.empty() && initials != other;
  return tells ? initials : std::filesystem::path(observer.file).stem().string();
}

}  // namespace orvex
