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

/// The form on which the questions of an observation are corrected.
class frmQA : public QWidget {
  Q_OBJECT

 public:
  /// `live` and `clocks` are those of the class in progress; null without one.
  frmQA(const Services& services, const QuestionEditorStart& start, LiveObservation* live,
        const SessionClocks* clocks, QWidget* parent = nullptr);
  ~frmQA() override;

  QuestionEditor& Editor() { return editor_; }
  /// Copies what the editor says is shown into the controls.
  void Refresh();

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  using Buttons = std::array<std::pair<QuestionEditor::Command, QPushButton*>, 9>;

  /// All but that of the off-task prompt, which the clock shows.
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
  int clocksWidth_ = 0;       // of the clocks and the off-task prompt in one line
  bool listFollows_ = false;  // the list is being set, not chosen from
  QuestionFrames* frames_ = nullptr;
  std::unique_ptr<BoxFocus> boxFocus_;  // last: it must not see the form go down
};

}  // namespace orvex
