#pragma once

#include <QWidget>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "agreement/compared_study.h"
#include "desk/guarded_tick.h"
#include "desk/services.h"

class QTimer;

namespace Ui {
class frmAgreementStudy;
}

namespace orvex {

class FiguresPage;
class StudyTable;

/// How far the observers of a study agree: pair by pair, observer by observer, over the dates, and
/// all together.
class frmAgreementStudy : public QWidget {
  Q_OBJECT

 public:
  /// Compares the pairs among episode files.
  frmAgreementStudy(const Services& services, std::vector<std::filesystem::path> files,
                    QWidget* parent = nullptr);
  ~frmAgreementStudy() override;

  void Refresh();

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ConnectButtons();
  void ConnectKeys();
  void FillDimensions();
  bool TakeKey(const QWidget* control, const QKeyEvent& key);
  void FocusPage();
  void TurnPage(int step);
  void Tick();
  void ShowFigures();
  void ShowCourses();
  void ShowRemarks();
  void OpenPair();
  void CopyPaper() const;
  void Print();
  /// The dimension that the plots are of; nothing for the activities.
  std::optional<std::size_t> Dimension() const;

  Services services_;
  ComparedStudy study_;
  GuardedTick tick_;
  std::unique_ptr<Ui::frmAgreementStudy> ui_;
  FiguresPage* pairs_ = nullptr;
  FiguresPage* observers_ = nullptr;
  FiguresPage* icc_ = nullptr;
  QTimer* ticks_ = nullptr;
  bool wasHidden_ = false;  ///< for a pair, which may have been changed meanwhile
};

}  // namespace orvex
