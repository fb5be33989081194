#pragma once

#include <QObject>
#include <functional>
#include <utility>
#include <vector>

#include "study/study_actions.h"

class QAction;
class QMenu;
class QWidget;

namespace orvex {

/// What can be done with the current observation of the study, as a menu and as the keys of the
/// table. What is not possible is disabled.
class ObservationActions : public QObject {
  Q_OBJECT

 public:
  /// Does it with the current observation.
  using Do = std::function<void(StudyAction)>;

  ObservationActions(QWidget& table, Do act);

  /// To be called with the current observation; null if there is none.
  void Refresh(const StudyRow* row);
  /// The menu. Others may add to it.
  QMenu* Menu() const { return menu_; }

 private:
  QMenu* menu_;
  std::vector<std::pair<StudyAction, QAction*>> actions_;
};

}  // namespace orvex
