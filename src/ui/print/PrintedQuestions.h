#pragma once

#include <QCoreApplication>

#include "ui/print/FlowingReport.h"

namespace orvex {

struct QuestionList;

/// All questions of a class on paper, with their codes.
class PrintedQuestions : public FlowingReport {
  Q_DECLARE_TR_FUNCTIONS(PrintedQuestions)

 public:
  /// `classId` is "7-12-3"; `subtitle` says more of the class.
  PrintedQuestions(const QuestionList& questions, QString classId, const QString& subtitle);

  QString Title() const override;
  QString DocumentName() const override;

 private:
  QString classId_;
};

}  // namespace orvex
