#pragma once

namespace orvex {

class Prompter;
struct Program;

/// Moves `ProofEp` and `ProofQ` on to the next question that is not fully coded, round to the
/// start. False, and both stay, when there is none; the user has been told then.
bool FindNextGap(Program& program, Prompter& prompter);

}  // namespace orvex
