#include "questions/question_layout.h"

#include <cstdint>

namespace orvex {
namespace {

/// Where the question keeps the code of `dimension`; null for the name, which is no code.
template <typename Question>
auto CodeAt(Question& question, Dimension dimension) -> decltype(&question.Source) {
  switch (dimension) {
    case Dimension::source:
      return &question.Source;
    case Dimension::response:
      return &question.Response;
    case Dimension::authenticity:
      return &question.authenticity;
    case Dimension::uptake:
      return &question.uptake;
    case Dimension::cognitive:
      return &question.cognitive;
    case Dimension::respondName:
      return nullptr;
    case Dimension::onePartOfMulti:
      return &question.onePartOfMulti;
    case Dimension::tResponse:
      return &question.tResponse;
    case Dimension::elaborated:
      return &question.elaborated;
  }
  return nullptr;
}

int OptionCount(Dimension dimension) {
  return static_cast<int>(SchemeOf(dimension).letters.size());
}

}  // namespace

int OptionOf(const questionInfo& question, Dimension dimension) {
  const std::int16_t* code = CodeAt(question, dimension);
  return code && *code >= 0 && *code < OptionCount(dimension) ? *code : -1;
}

void SetOption(questionInfo& question, Dimension dimension, int option) {
  std::int16_t* code = CodeAt(question, dimension);
  if (code && option >= 0 && option < OptionCount(dimension)) {
    *code = static_cast<std::int16_t>(option);
  }
}

bool AsksFor(const questionInfo& question, Dimension dimension) {
  const bool teacher = question.strSrc() == "T";
  const bool student = question.strSrc() == "S";
  const bool answered = (teacher || student) && question.strRspns() == "Y";
  switch (dimension) {
    case Dimension::source:
    case Dimension::response:
      return true;
    case Dimension::respondName:
      return answered || student;
    case Dimension::onePartOfMulti:
      return answered && teacher;
    case Dimension::tResponse:
      return answered && student;
    case Dimension::authenticity:
    case Dimension::uptake:
    case Dimension::cognitive:
    case Dimension::elaborated:
      break;
  }
  return answered;
}

}  // namespace orvex
