#include "ui/forms/ObservationActions.h"

#include <QAction>
#include <QMenu>
#include <utility>

namespace orvex {
namespace {

struct Item {
  StudyAction action;
  const char* caption;
  QKeySequence key;
};

/// The items of the menu, in order. Enter opens: the table sees to that.
const std::vector<Item>& Items() {
  static const std::vector<Item> items = {
      {StudyAction::open, QT_TRANSLATE_NOOP("ObservationActions", "&Open\tEnter"), {}},
      {StudyAction::takeUpClass,
       QT_TRANSLATE_NOOP("ObservationActions", "Ta&ke Up the Class..."),
       {}},
      {StudyAction::editEpisodes, QT_TRANSLATE_NOOP("ObservationActions", "&Episodes"),
       Qt::CTRL | Qt::Key_E},
      {StudyAction::proof, QT_TRANSLATE_NOOP("ObservationActions", "&Proof"), Qt::Key_F7},
      {StudyAction::editSurvey, QT_TRANSLATE_NOOP("ObservationActions", "S&urvey"),
       Qt::CTRL | Qt::Key_U},
      {StudyAction::editNotes, QT_TRANSLATE_NOOP("ObservationActions", "Field &Notes"),
       Qt::CTRL | Qt::Key_N},
      {StudyAction::showLog, QT_TRANSLATE_NOOP("ObservationActions", "Session &Log"),
       Qt::CTRL | Qt::Key_L},
      {StudyAction::showStatistics, QT_TRANSLATE_NOOP("ObservationActions", "&Statistics"),
       Qt::CTRL | Qt::Key_S},
      {StudyAction::showTimeSummary, QT_TRANSLATE_NOOP("ObservationActions", "&Time Summary"),
       Qt::CTRL | Qt::Key_T},
      {StudyAction::showPicture, QT_TRANSLATE_NOOP("ObservationActions", "Class Pi&cture"),
       Qt::CTRL | Qt::Key_P},
  };
  return items;
}

}  // namespace

ObservationActions::ObservationActions(QWidget& table, Do act)
    : QObject(&table), menu_(new QMenu(&table)) {
  for (const Item& item : Items()) {
    QAction* action = menu_->addAction(tr(item.caption));
    action->setShortcut(item.key);
    action->setShortcutContext(Qt::WidgetShortcut);
    table.addAction(action);
    connect(action, &QAction::triggered, this, [act, what = item.action] { act(what); });
    actions_.emplace_back(item.action, action);
  }
}

void ObservationActions::Refresh(const StudyRow* row) {
  for (const auto& [what, action] : actions_) action->setEnabled(row && IsPossible(what, *row));
}

}  // namespace orvex
