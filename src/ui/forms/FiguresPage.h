#pragma once

#include <QObject>
#include <functional>

#include "agreement/compared_study.h"
#include "ui/widgets/FigureModel.h"

namespace orvex {

class StudyTable;

/// A table of figures in its form: a click on a heading, or Ctrl+B, sorts it, Ctrl+C copies the
/// selected rows.
class FiguresPage : public QObject {
  Q_OBJECT

 public:
  /// `study` outlives the page.
  FiguresPage(StudyTable& table, ComparedStudy& study, StudyFigures which);

  StudyTable& Table() const { return table_; }
  /// Runs `change`, which may change the rows, and shows the same place again.
  void Change(const std::function<void()>& change);
  void Copy() const;

 private:
  void SortBy(int column);

  StudyTable& table_;
  ComparedStudy& study_;
  const StudyFigures which_;
  FigureModel rows_;
  int sortedBy_ = -1;
  bool descending_ = false;
};

}  // namespace orvex
