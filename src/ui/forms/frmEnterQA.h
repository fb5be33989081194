#pragma once

#include <QWidget>
#include <array>
#include <memory>
#include <optional>

#include "desk/focus.h"
#include "desk/services.h"
#include "model/dimensions.h"
#include "questions/question_entry.h"

class QKeyEvent;
class QLabel;
class QLineEdit;
class QPushButton;
namespace Ui {
class frmEnterQA;
}

namespace orvex {

/// The form for typing and coding questions while a question/answer segment runs.
class frmEnterQA : public QWidget {
  Q_OBJECT

 public:
  frmEnterQA(const Services& services, LiveObservation& live, const SessionClocks& clocks,
             QWidget* parent = nullptr);
  ~frmEnterQA() override;

  QuestionEntry& Entry() { return entry_; }
  /// Updates the controls from the question entry.
  void Refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  /// A box for a code, and its label.
  struct Field {
    Dimension dimension;
    QLineEdit* box;
    QLabel* label;
  };
  struct Button {
    QuestionEntry::Command command;
    QPushButton* button;
  };
  using Box = QuestionEntry::Box;

  std::array<Field, kDimensionCount> Fields() const;
  std::array<Button, QuestionEntry::kCommands> Buttons() const;
  QLineEdit* EditOf(Box box) const;
  /// The box that `watched` is; nothing for what is no box.
  std::optional<Box> BoxOf(const QObject* watched) const;
  void ConnectBoxes();
  void ConnectButtons();
  void StartTimer();
  void RefreshTexts();
  void RefreshClocks();
  void RefreshStates(bool available);
  QString LeaveCaption() const;
  void TakeFocusWish();
  void EnterText(Box text, Qt::FocusReason reason);
  bool TakeKey(const QWidget* control, const QKeyEvent& key);
  bool TakeStep(const QLineEdit* box, Way way);
  bool AnswerReview(int key);

  QuestionEntry entry_;
  std::unique_ptr<Ui::frmEnterQA> ui_;
};

}  // namespace orvex
