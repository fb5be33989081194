#include "ui/widgets/QuestionsModel.h"

#include <functional>
#include <utility>

#include "model/activities.h"
#include "model/dimensions.h"
#include "study/study.h"
#include "ui/text.h"

namespace orvex {
namespace {

/// The name of an activity, or the bare number of one that the scheme does not have.
std::string ActivityText(int activity) {
  if (activity == kNoActivity) return "";
  return IsActivity(activity) ? std::string(ActivityOf(activity).name) : std::to_string(activity);
}

/// A column, and what it holds of a question.
struct QuestionColumn {
  StudyModel::Column column;
  std::function<std::string(const QuestionRow&)> cell;
};

const std::vector<QuestionColumn>& QuestionColumns() {
  static const auto columns = [] {
    std::vector<QuestionColumn> made;
    const auto add = [&made](StudyModel::Column column, auto cell) {
      made.push_back({std::move(column), std::move(cell)});
    };
    add({.heading = QuestionsModel::tr("Text"),
         .explanation = QuestionsModel::tr("The question as it was typed"),
         .width = 48},
        [](const QuestionRow& question) { return std::string(question.text); });
    for (const Dimension dimension : kDimensions) {
      const DimensionScheme& scheme = SchemeOf(dimension);
      QString explanation = ToQt(scheme.label);
      for (std::size_t i = 0; i < scheme.letters.size(); ++i) {
        explanation += QStringLiteral("\n%1: %2")
                           .arg(ToQt(scheme.letters.substr(i, 1)), ToQt(scheme.meanings[i]));
      }
      add({.heading = ToQt(scheme.label),
           .explanation = explanation,
           .width = scheme.HasLetters() ? 5 : 12},
          [dimension](const QuestionRow& question) {
            return std::string(question.codes[dimension]);
          });
    }
    add({.heading = QuestionsModel::tr("Observation"),
         .explanation = QuestionsModel::tr("The observation it was asked in"),
         .width = 16},
        [](const QuestionRow& question) { return question.observation->name; });
    add({.heading = QuestionsModel::tr("Episode"),
         .explanation = QuestionsModel::tr("The number of its episode in the observation"),
         .isNumber = true},
        [](const QuestionRow& question) { return std::to_string(question.episode); });
    add({.heading = QuestionsModel::tr("Question"),
         .explanation = QuestionsModel::tr("Its number in the episode"),
         .isNumber = true},
        [](const QuestionRow& question) { return std::to_string(question.number); });
    add({.heading = QuestionsModel::tr("Activity"),
         .explanation = QuestionsModel::tr("The activity of the segment it was asked in"),
         .width = 20},
        [](const QuestionRow& question) { return ActivityText(question.activity); });
    return made;
  }();
  return columns;
}

std::vector<StudyModel::Column> MakeColumns() {
  std::vector<StudyModel::Column> columns;
  for (const QuestionColumn& column : QuestionColumns()) columns.push_back(column.column);
  return columns;
}

constexpr char kBetween = '\n';  // between the parts of a key; no number holds it

}  // namespace

QuestionsModel::QuestionsModel(QObject* parent) : StudyModel(MakeColumns(), parent) {}

std::size_t QuestionsModel::Count() const {
  return questions_ ? questions_->Count() : 0;
}

std::string QuestionsModel::Cell(std::size_t row, std::size_t column) const {
  return QuestionColumns().at(column).cell(questions_->Row(row));
}

/// The key reads "episode\nquestion\nobservation".
std::string QuestionsModel::KeyOf(std::size_t row) const {
  const auto question = questions_->Row(row);
  return std::to_string(question.episode) + kBetween + std::to_string(question.number) + kBetween +
         question.observation->name;
}

std::optional<std::size_t> QuestionsModel::RowOf(const std::string& key) const {
  const std::size_t first = key.find(kBetween);
  const std::size_t second = key.find(kBetween, first + 1);
  return questions_->Find(key.substr(second + 1), std::stoi(key.substr(0, first)),
                          std::stoi(key.substr(first + 1, second - first - 1)));
}

}  // namespace orvex
