#pragma once

#include <QWidget>
#include <array>
#include <memory>
#include <utility>

#include "desk/services.h"
#include "questions/question_editor.h"

class QPushButton;
namespace Ui {
class frmQA;
}

namespace orvex {

class BoxFocus;
class QuestionFrames;
class QuestionRows;

/// The form for correcting the questions of an observation.
class frmQA : public QWidget {
  Q_OBJECT

 public:
  /// `live` and `clocks` belong to the class in progress; null without one.
  frmQA(const Services& services, const QuestionEditorStart& start, LiveObservation* live,
        const SessionClocks* clocks, QWidget* parent = nullptr);
  ~frmQA() override;

  QuestionEditor& Editor() { return editor_; }
  /// Updates the controls from the editor.
  void Refresh();

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  using Buttons = std::array<std::pair<QuestionEditor::Command, QPushButton*>, 9>;

  /// All buttons with their commands, except the one for off-task estimates.
  Buttons EditButtons() const;
  void ConnectList();
  void ConnectBoxes();
  void ConnectButtons();
  void WatchFocus();
  void StartTimers();
  void ArrangeClocks();
  void ShowGap();
  void RefreshList();
  void RefreshTexts();
  void RefreshClocks();
  void RefreshStates(bool available);
  void TakeFocusWish();
  bool TakeStep(const QWidget* control, Way way);

  QuestionEditor editor_;
  std::unique_ptr<Ui::frmQA> ui_;
  QuestionRows* rows_;
  int clocksWidth_ = 0;       // the width of the clocks and the off-task prompt side by side
  bool listFollows_ = false;  // the list is being set; do not take it as a choice
  QuestionFrames* frames_ = nullptr;
  std::unique_ptr<BoxFocus> boxFocus_;  // last, so it is destroyed first
};

}  // namespace orvex
