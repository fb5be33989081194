#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "model/activities.h"

class QComboBox;
class QLabel;
class QRadioButton;
namespace Ui {
class frmClassAct;
}

namespace orvex {

class ChoiceGroup;
class LiveObservation;

/// The part of the live form that codes the running segment: the activities and their sub-codes.
class LiveCodingPanel : public QObject {
  Q_OBJECT

 public:
  /// Calls `chosen` after each choice.
  LiveCodingPanel(Ui::frmClassAct& ui, LiveObservation& live, std::function<void()> chosen,
                  QObject* parent);

  void Refresh();
  void FocusActivity(int activity);

 private:
  std::vector<QRadioButton*> ActivityButtons() const;
  void BuildChoices();
  void ConnectCombos();

  Ui::frmClassAct& ui_;
  LiveObservation& live_;
  std::function<void()> chosen_;
  ChoiceGroup* activities_ = nullptr;
  struct CodeButtons {
    SubCode code;
    ChoiceGroup* buttons;
  };
  std::vector<CodeButtons> codes_;
  struct CodeList {
    SubCode code;
    QComboBox* box;
    QLabel* label;
  };
  std::vector<CodeList> lists_;
};

}  // namespace orvex
