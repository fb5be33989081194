#pragma once

#include <QKeySequence>
#include <QList>
#include <QWidget>
#include <functional>
#include <memory>

#include "editor/episode_editor.h"

class QAction;
class QLabel;
class QLineEdit;
class QPushButton;
namespace Ui {
class frmClassEdit;
}

namespace orvex {

class BoxFocus;
class Clock;
class SegmentCodingPanel;
class dlgTimer;

/// The episode editor: corrects the episodes and segments of an observation after class.
class frmClassEdit : public QWidget {
  Q_OBJECT

 public:
  frmClassEdit(const Services& services, LoadedEpisodes loaded, QWidget* parent = nullptr);
  ~frmClassEdit() override;

  EpisodeEditor& Editor() { return editor_; }
  /// Updates the controls from the editor.
  void Refresh();

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddKeepTrouble();
  void ConnectLists();
  void ConnectKeys();
  void ConnectButtons();
  void ConnectBoxes();
  void StartTimer();
  /// Makes `keys` run `work`: anywhere in the form if `where` is the form, else only in that
  /// control.
  QAction* AddKeys(QList<QKeySequence> keys, QWidget* where, std::function<void()> work);
  QPushButton* ButtonUnder(const QWidget* list, const QKeyEvent& key) const;
  void ShowMenu(QLineEdit& box, const QPoint& position);
  void ShowTimer();
  void RefreshTexts();
  void RefreshLists();
  void RefreshButtons();

  const Clock& clock_;
  EpisodeEditor editor_;
  std::unique_ptr<Ui::frmClassEdit> ui_;
  SegmentCodingPanel* coding_ = nullptr;
  QLabel* keepTrouble_ = nullptr;
  QAction* undo_ = nullptr;
  QAction* redo_ = nullptr;
  dlgTimer* timer_ = nullptr;
  std::unique_ptr<BoxFocus> boxFocus_;  // last, so it is destroyed first
};

}  // namespace orvex
