#pragma once

#include <QWidget>
#include <array>
#include <memory>
#include <utility>

#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "store/services.h"

class QKeyEvent;
class QLineEdit;
namespace Ui {
class frmClassAct;
}

namespace orvex {

class ChoiceGroup;

/// The form on which a class is observed: it divides the class into episodes and segments.
class frmClassAct : public QWidget {
  Q_OBJECT

 public:
  explicit frmClassAct(const Services& services, QWidget* parent = nullptr);
  ~frmClassAct() override;

  LiveObservation& Live() { return live_; }
  const SessionClocks& Clocks() const { return clocks_; }

  /// Copies what the observation says is shown into the controls.
  void Refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildChoices();
  void ConnectTexts();
  void ConnectButtons();
  void StartTimers();
  void KeepPlaces();
  void RefreshTexts();
  void RefreshClocks();
  void RefreshCoding();
  void RefreshButtons();
  void TakeFocusWish();
  bool HandleKey(const QObject* watched, const QKeyEvent& event);
  void HandleFocus(QObject* watched, const QEvent& event);
  std::array<std::pair<HeaderBox, QLineEdit*>, 5> Boxes() const;
  QLineEdit* BoxOf(HeaderBox box) const;

  Prompter& prompter_;
  LiveObservation live_;
  SessionClocks clocks_;
  std::unique_ptr<Ui::frmClassAct> ui_;
  ChoiceGroup* activities_ = nullptr;    // Option0
  ChoiceGroup* writingKinds_ = nullptr;  // Option1
  ChoiceGroup* groupTypes_ = nullptr;    // Option2
  ChoiceGroup* groupSolo_ = nullptr;     // Option3
  ChoiceGroup* preparation_ = nullptr;   // Option4
  ChoiceGroup* organization_ = nullptr;  // Option5
  const QObject* focused_ = nullptr;     // the control that has the focus, not yet left
};

}  // namespace orvex
