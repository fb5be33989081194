#include "ui/print/PrintedQuestions.h"

#include <utility>
#include <vector>

#include "reports/question_list.h"
#include "ui/text.h"

namespace orvex {

PrintedQuestions::PrintedQuestions(const QuestionList& questions, QString classId,
                                   const QString& subtitle)
    : FlowingReport(subtitle), classId_(std::move(classId)) {
  std::vector<PaperTable::Column> columns;
  for (const QuestionList::Column& column : questions.columns) {
    columns.push_back({ToQt(column.heading), column.isNarrow});
  }
  std::vector<std::vector<QString>> rows;
  for (const auto& row : questions.rows) {
    auto& cells = rows.emplace_back();
    for (const std::string& cell : row) cells.push_back(ToQt(cell));
  }
  Flow().AddTable(std::move(columns), rows);
}

QString PrintedQuestions::Title() const {
  return tr("%1 Questions").arg(classId_);
}

QString PrintedQuestions::DocumentName() const {
  return Title();
}

}  // namespace orvex
