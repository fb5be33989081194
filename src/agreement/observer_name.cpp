#include "agreement/observer_name.h"

#include <filesystem>

#include "agreement/agreement.h"
#include "model/texts.h"
#include "store/numbers.h"
#include "study/folded_text.h"

namespace orvex {

std::string ObserverKey(const Identity& identity) {
  return Folded(WithoutBlanks(identity.Initials));
}

std::string ShownInitials(const Identity& identity) {
  const std::string_view initials = WithoutBlanks(identity.Initials);
  return initials.empty() ? std::string(Say(Text::noInitials)) : std::string(initials);
}

std::string NameOfObserver(const Agreement& agreement, Side side) {
  const Agreement::Observer& observer = side == Side::first ? agreement.first : agreement.second;
  const Agreement::Observer& other = side == Side::first ? agreement.second : agreement.first;
  const std::string key = ObserverKey(observer.identity);
  const std::string otherKey = ObserverKey(other.identity);
  const bool tells = !key.empty() && !otherKey.empty() && key != otherKey;
  return tells ? ShownInitials(observer.identity)
               : std::filesystem::path(observer.file).stem().string();
}

}  // namespace orvex
