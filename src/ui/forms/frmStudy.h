#pragma once

#include <QWidget>
#include <filesystem>
#include <memory>

#include "desk/guarded_tick.h"
#include "desk/services.h"
#include "study/study.h"
#include "study/study_actions.h"
#include "study/study_layout.h"

class QTimer;

namespace Ui {
class frmStudy;
}

namespace orvex {

class ObservationsPage;
class QuestionsPage;

/// The study: every observation of a folder at a glance, and every question.
class frmStudy : public QWidget {
  Q_OBJECT

 public:
  explicit frmStudy(const Services& services, QWidget* parent = nullptr);
  ~frmStudy() override;

  void Refresh();

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ConnectButtons();
  void ConnectKeys();
  void ConnectPages();
  void StartTimers();
  QTimer* AddTimer(const char* name, void (frmStudy::*work)());
  void StoreLayout();
  bool TakeKey(const QWidget* control, const QKeyEvent& key);
  void TurnPage(int step);
  void OpenFolder(const std::filesystem::path& folder, const StudyLayout& layout);
  void ChooseFolder();
  void Tick();
  void Look();
  void OpenCurrent();
  void FocusTable();
  bool ShowsQuestions() const;

  Services services_;
  StudyActions actions_;
  GuardedTick tick_;
  std::unique_ptr<Study> study_;
  std::unique_ptr<Ui::frmStudy> ui_;
  ObservationsPage* observations_ = nullptr;
  QuestionsPage* questions_ = nullptr;
  StudyLayout stored_;  ///< how the table is arranged, as it is stored for the next time
  QTimer* ticks_ = nullptr;
  QTimer* looks_ = nullptr;
};

}  // namespace orvex
