#include "desk/proof.h"

#include "desk/prompter.h"
#include "model/program.h"
#include "model/validation.h"

namespace orvex {

bool FindNextGap(Program& program, Prompter& prompter) {
  if (FindUncodedQuestion(program.Episodes, program.ProofEp, program.ProofQ) != -1) return true;
  prompter.Tell("Everything coded; no invalid codes found");
  return false;
}

}  // namespace orvex
