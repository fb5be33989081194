#include "running/header_box.h"

#include <algorithm>
#include <utility>

#include "store/numbers.h"
#include "store/text_encoding.h"

namespace orvex {

HeaderBox BoxAfter(const HeaderRound& round, HeaderBox box, std::size_t steps) {
  const auto at = std::find(round.begin(), round.end(), box);
  return round[(static_cast<std::size_t>(at - round.begin()) + steps) % round.size()];
}

const std::string& HeaderText(const Identity& identity, HeaderBox box) {
  switch (box) {
    case HeaderBox::initials:
      return identity.Initials;
    case HeaderBox::schoolNum:
      return identity.SchoolNum;
    case HeaderBox::classNum:
      return identity.ClassNum;
    case HeaderBox::observNum:
      return identity.ObservNum;
    case HeaderBox::numStudents:
      break;
  }
  return identity.NumStudents;
}

std::string& HeaderText(Identity& identity, HeaderBox box) {
  return const_cast<std::string&>(HeaderText(std::as_const(identity), box));
}

void TypeHeaderText(Identity& identity, HeaderBox box, const std::string& text) {
  std::string line = OneLine(text);
  if (box == HeaderBox::initials) std::replace(line.begin(), line.end(), '"', '\'');
  HeaderText(identity, box) = std::move(line);
}

bool HoldsValidText(const Identity& identity, HeaderBox box) {
  const std::string& text = HeaderText(identity, box);
  if (box == HeaderBox::initials || text.empty()) return true;
  return box == HeaderBox::numStudents ? StudentCount(text).has_value()
                                       : IdentityNumber(text).has_value();
}

std::optional<std::size_t> NumberIndex(HeaderBox box) {
  const auto found = std::ranges::find(kNumberBoxes, box);
  if (found == kNumberBoxes.end()) return std::nullopt;
  return static_cast<std::size_t>(found - kNumberBoxes.begin());
}

Identity AsTyped(Identity identity, const TypedNumbers& typed) {
  for (std::size_t i = 0; i < typed.size(); ++i) {
    if (typed[i]) HeaderText(identity, kNumberBoxes[i]) = *typed[i];
  }
  return identity;
}

}  // namespace orvex
