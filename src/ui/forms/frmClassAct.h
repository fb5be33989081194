#pragma once

#include <QString>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>
#include <utility>

#include "desk/guarded_tick.h"
#include "desk/services.h"
#include "observe/live_observation.h"
#include "observe/session_clocks.h"

class QKeyEvent;
class QLineEdit;
class QTimer;
namespace Ui {
class frmClassAct;
}

namespace orvex {

class BoxFocus;
class LiveCodingPanel;

/// The form for observing a class, which divides it into episodes and segments.
class frmClassAct : public QWidget {
  Q_OBJECT

 public:
  /// Starts a new class, or continues one that is taken up again.
  explicit frmClassAct(const Services& services, const RunningClass* takenUp = nullptr);
  ~frmClassAct() override;

  LiveObservation& Live() { return live_; }
  const SessionClocks& Clocks() const { return clocks_; }

  /// Updates the controls from the observation.
  void Refresh();

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ConnectTexts();
  void WatchFocus();
  void ConnectButtons();
  void StartTimers();
  void TickEstimates();
  QTimer* AddTimer(const char* name, int interval, std::function<void()> tick);
  void KeepPlaces();
  void RefreshTexts();
  void RefreshClocks();
  void RefreshButtons();
  QString ConversionCaption(Conversion conversion) const;
  void Convert();
  void ShowWaiting(bool forSurvey);
  void TakeFocusWish();
  bool TakeKey(const QWidget* control, const QKeyEvent& key);
  std::array<std::pair<HeaderBox, QLineEdit*>, 5> Boxes() const;
  QLineEdit* BoxOf(HeaderBox box) const;

  LiveObservation live_;
  SessionClocks clocks_;
  GuardedTick timer3_;
  GuardedTick offtaskTick_;
  bool offtaskSound_;
  std::unique_ptr<Ui::frmClassAct> ui_;
  LiveCodingPanel* coding_ = nullptr;
  QTimer* offtaskTimer_ = nullptr;
  bool conversionBlank_ = false;        ///< since the last conversion
  std::unique_ptr<BoxFocus> boxFocus_;  // last: it must not see the form go down
};

}  // namespace orvex
