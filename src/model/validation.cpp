#include "model/validation.h"

#include <algorithm>
#include <cstddef>

namespace orvex {

MissingCodes FindMissingCodes(const questionInfo& question) {
  const bool answered = question.strRspns() == "Y";
  const bool byTeacher = question.strSrc() == "T";
  const bool byStudent = question.strSrc() == "S";
  const bool coded = answered && (byTeacher || byStudent);

  MissingCodes missing;
  missing.text = question.question.empty();
  const auto require = [&missing](bool required, bool present, Dimension dimension) {
    if (required && !present) missing.dimensions.push_back(dimension);
  };
  require(true, question.Source >= 0, Dimension::source);
  require(true, question.Response >= 0, Dimension::response);
  require(coded, question.authenticity >= 0, Dimension::authenticity);
  require(coded, question.uptake >= 0, Dimension::uptake);
  require(coded, question.cognitive >= 0, Dimension::cognitive);
  require(coded || byStudent, !question.respondName.empty(), Dimension::respondName);
  require(coded && byTeacher, question.onePartOfMulti >= 0, Dimension::onePartOfMulti);
  require(coded && byStudent, question.tResponse >= 0, Dimension::tResponse);
  require(coded, question.elaborated >= 0, Dimension::elaborated);
  return missing;
}

int FindUncodedQuestion(const EpisodeList& episodes, int& ep, int& q) {
  const int count = static_cast<int>(episodes.size());
  int episode = ep < 1 || ep > count ? 1 : ep;
  int question = std::max(q, 1);
  // The first episode comes round once more, for the questions before the start.
  for (int round = 0; count > 0 && round <= count; ++round) {
    const auto& questions = episodes[static_cast<std::size_t>(episode - 1)].questions;
    for (; question <= static_cast<int>(questions.size()); ++question) {
      if (!FindMissingCodes(questions[static_cast<std::size_t>(question - 1)]).None()) {
        ep = episode;
        q = question;
        return 1;
      }
    }
    episode = episode == count ? 1 : episode + 1;
    question = 1;
  }
  return -1;
}

}  // namespace orvex
