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

/// The box `steps` after `box` in the order of `round`, starting over after the last one.
HeaderBox BoxAfter(const HeaderRound& round, HeaderBox box, std::size_t steps);
inline HeaderBox NextBox(const HeaderRound& round, HeaderBox box) {
  return BoxAfter(round, box, 1);
}
inline HeaderBox PreviousBox(const HeaderRound& round, HeaderBox box) {
  return BoxAfter(round, box, round.size() - 1);
}

/// The text that `identity` has for a box.
std::string& HeaderText(Identity& identity, HeaderBox box);
const std::string& HeaderText(const Identity& identity, HeaderBox box);

/// Stores the text of a box as one line. Double quotes in the initials become single ones, because
/// in a file they would end the initials early.
void TypeHeaderText(Identity& identity, HeaderBox box, const std::string& text);

/// True when the box is empty or its text is valid: any text for the initials, a number within its
/// range for the others.
bool HoldsValidText(const Identity& identity, HeaderBox box);

/// The boxes that name the class, in the order of TypedNumbers.
inline constexpr std::array kNumberBoxes = {HeaderBox::schoolNum, HeaderBox::classNum,
                                            HeaderBox::observNum};
/// The index of `box` in kNumberBoxes; empty if it is not one of them.
std::optional<std::size_t> NumberIndex(HeaderBox box);
/// The identity as the boxes show it: its accepted numbers replaced by those being typed.
Identity AsTyped(Identity identity, const TypedNumbers& typed);
}  // namespace orvex
