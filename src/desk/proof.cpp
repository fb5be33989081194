#include "desk/proof.h"

#include "desk/prompter.h"
#include "model/program.h"
#include "model/texts.h"
#include "model/validation.h"

namespace orvex {

bool FindNextGap(Program& program, Prompter& prompter) {
  if (FindUncodedQuestion(program.Episodes, program.ProofEp, program.ProofQ) != -1) return true;
  prompter.Tell(Say(Text::everythingCoded));
  return false;
}

}  // namespace orvex
