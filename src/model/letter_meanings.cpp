#include "model/letter_meanings.h"

namespace orvex {

std::string_view LetterMeanings(Dimension dimension) {
  switch (dimension) {
    case Dimension::source:
      return "T teacher: the teacher asks.  S student: a student asks.";
    case Dimension::response:
      return "Y response: somebody answers.  N no response: nobody does.";
    case Dimension::authenticity:
      return "N not authentic: the asker holds one answer to be right.  A authentic: no answer is "
             "fixed beforehand.";
    case Dimension::uptake:
      return "N none: takes up nothing.  T test: takes up what was said, wants one answer.  A "
             "authentic: takes it up and is open.";
    case Dimension::cognitive:
      return "R report: what is known or was read.  H higher order: to be analysed or generalised.";
    case Dimension::respondName:
      return "A name, a seat number or a word, as your study has agreed.";
    case Dimension::onePartOfMulti:
      return "Y yes: one of several answers to the same question.  N no: the only one.";
    case Dimension::tResponse:
      return "C closing down: ends the matter.  A answering: gives the answer.  O opening up: "
             "hands "
             "it to the class.";
    case Dimension::elaborated:
      return "E elaborated: more than the shortest answer.  U unelaborated: the shortest that will "
             "do.";
  }
  return "";
}

}  // namespace orvex
