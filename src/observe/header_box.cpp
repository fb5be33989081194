#include "observe/header_box.h"

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

void NormaliseNumbers(Identity& identity) {
  for (const HeaderBox box : {HeaderBox::schoolNum, HeaderBox::classNum, HeaderBox::observNum}) {
    std::string& text = HeaderText(identity, box);
    if (const auto number = IdentityNumber(text)) text = std::to_string(*number);
  }
}

}  // namespace orvex
