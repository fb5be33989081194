#pragma once

namespace orvex {

class Prompter;
struct Program;

/// Moves `ProofEp` and `ProofQ` to the next question that is not fully coded, starting over after
/// the last. When there is none, tells the user and returns false; both then stay.
bool FindNextGap(Program& program, Prompter& prompter);

}  // namespace orvex
