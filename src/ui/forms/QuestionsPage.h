#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "study/study.h"
#include "ui/widgets/QuestionsModel.h"

namespace Ui {
class frmStudy;
}

namespace orvex {

class StudyActions;

/// The page of the study's form with every question of the study.
class QuestionsPage : public QObject {
  Q_OBJECT

 public:
  QuestionsPage(Ui::frmStudy& ui, StudyActions& actions, QObject* parent);

  /// Shows the questions of `study`, once they are asked for by `Load`.
  void Show(Study& study);
  void Load();
  /// Runs `change`, which may change the questions, and shows the same place of the table again.
  void Change(const std::function<void()>& change);
  /// Says how many questions there are, or why there are none.
  void Refresh();

  bool CanOpen() const { return Current().has_value(); }
  /// Opens the current question in its editor.
  void Open();

 Q_SIGNALS:
  /// Another question is current, or it has changed.
  void CurrentMoved();

 private:
  void AddCodes();
  void Insert(const QString& code);
  std::optional<QuestionRow> Current() const;
  void ShowCurrent();

  Ui::frmStudy& ui_;
  StudyActions& do_;
  Study* study_ = nullptr;
  StudyQuestions* questions_ = nullptr;  ///< once loaded
  QuestionsModel rows_;
};

}  // namespace orvex
