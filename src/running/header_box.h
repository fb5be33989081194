#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "model/program.h"
#include "running/running_class.h"

namespace orvex {

/// The five boxes of the observation header, on the set-up form and on the live form.
enum class HeaderBox { initials, schoolNum, classNum, observNum, numStudents };
using HeaderRound = std::array<HeaderBox, 5>;
inline constexpr HeaderRound kHeaderBoxes = {HeaderBox::initials, HeaderBox::schoolNum,
                                             HeaderBox::classNum, HeaderBox::observNum,
                                             HeaderBox::numStudents};

/// The box that comes `steps` after `box` when Enter goes round the boxes in the order of `round`.
HeaderBox BoxAfter(const HeaderRound& round, HeaderBox box, std::size_t steps);
inline HeaderBox NextBox(const HeaderRound& round, HeaderBox box) {
  return BoxAfter(round, box, 1);
}
inline HeaderBox PreviousBox(const HeaderRound& round, HeaderBox box) {
  return BoxAfter(round, box, round.size() - 1);
}

/// The text of a box.
std::string& HeaderText(Identity& identity, HeaderBox box);
const std::string& HeaderText(const Identity& identity, HeaderBox box);

/// Stores what was typed: one line, without the double quotes that would end the initials early.
void TypeHeaderText(Identity& identity, HeaderBox box, const std::string& text);

/// True when the box holds nothing, or what it is there for: the initials any text, the others a
/// number in their range.
bool HoldsValidText(const Identity& identity, HeaderBox box);

/// The boxes that name the class, in the order of TypedNumbers.
inline constexpr std::array kNumberBoxes = {HeaderBox::schoolNum, HeaderBox::classNum,
                                            HeaderBox::observNum};
/// The place of a box among them; nothing for the others.
std::optional<std::size_t> NumberIndex(HeaderBox box);
/// What the boxes say: the identity, and what is being typed over its numbers.
Identity AsTyped(Identity identity, const TypedNumbers& typed);
}  // namespace orvex
