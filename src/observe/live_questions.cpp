#include "observe/live_questions.h"

#include <utility>

#include "model/program.h"
#include "store/session_log.h"

namespace orvex {

std::vector<questionInfo>& LiveQuestions::Questions() {
  return services_.program.Episodes.back().questions;
}

const std::vector<questionInfo>& LiveQuestions::Filed() const {
  return services_.program.Episodes.back().questions;
}

bool LiveQuestions::SegmentHasQuestions() const {
  return static_cast<int>(Filed().size()) > running_.questionsBefore;
}

void LiveQuestions::File(const questionInfo& question) {
  const int number = static_cast<int>(Filed().size()) + 1;
  services_.log.LogRevisedQuestion(running_.curEpisode, number, question);
  Questions().push_back(question);
  running_.history.ForgetUndone();
}

questionInfo LiveQuestions::DropLast() {
  questionInfo last = std::move(Questions().back());
  Questions().pop_back();
  return last;
}

void LiveQuestions::Record(QuestionStep step) {
  running_.history.Record(std::move(step), services_.program.Episodes);
}

const QuestionStep* LiveQuestions::Next(Way way) const {
  return running_.history.Next(way, services_.program.Episodes, running_.draft);
}

const QuestionStep* LiveQuestions::Take(Way way) {
  return running_.history.Take(way, services_.program.Episodes, running_.draft);
}

}  // namespace orvex
