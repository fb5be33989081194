#pragma once

#include <QWidget>

#include "ui/picture/StudyPage.h"

namespace orvex {

/// The pages of a study on the screen, one at a time, as they will be on paper.
class StudyPageView : public QWidget {
  Q_OBJECT

 public:
  explicit StudyPageView(QWidget* parent = nullptr);

  /// Shows the first page.
  void Show(StudyPage study);
  const StudyPage& Study() const { return study_; }
  /// The number of pages, and the one that is shown, counted from 0.
  int Pages() const;
  int Page() const { return page_; }
  void Turn(int step);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  StudyPage study_;
  int page_ = 0;
};

}  // namespace orvex
