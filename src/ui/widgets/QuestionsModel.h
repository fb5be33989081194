#pragma once

#include "ui/widgets/StudyModel.h"

namespace orvex {

class StudyQuestions;

/// The questions of a study: their texts, their codes by dimension, and where they were asked.
class QuestionsModel : public StudyModel {
  Q_OBJECT

 public:
  explicit QuestionsModel(QObject* parent = nullptr);

  /// Shows `questions`; null for none. Refill it then.
  void Show(const StudyQuestions* questions) { questions_ = questions; }

  std::string KeyOf(std::size_t row) const override;
  std::optional<std::size_t> RowOf(const std::string& key) const override;

 protected:
  std::size_t Count() const override;
  std::string Cell(std::size_t row, std::size_t column) const override;

 private:
  const StudyQuestions* questions_ = nullptr;
};

}  // namespace orvex
