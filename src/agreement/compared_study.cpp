#include "agreement/compared_study.h"

#include <utility>

#include "agreement/study_tables.h"
#include "model/texts.h"
#include "model/wording.h"
#include "study/problem.h"

namespace orvex {

ComparedStudy::ComparedStudy(std::vector<std::filesystem::path> files) : files_(std::move(files)) {
  Show(StudyFigures::pairs, PairsTable({}));
  Show(StudyFigures::observers, ObserversTable({}));
  Show(StudyFigures::icc, IccTable({}));
  Show(StudyFigures::pooled, PooledTable({}));
  Begin();
}

void ComparedStudy::Begin() {
  reading_ = std::make_unique<AgreementReading>(files_, options_);
  isReading_ = true;
}

void ComparedStudy::SetTolerance(int seconds) {
  if (seconds == options_.tolerance) return;
  options_.tolerance = seconds;
  Begin();
}

void ComparedStudy::Reload() {
  Begin();
}

std::string ComparedStudy::ProgressText() const {
  return isReading_ || reading_->IsStopped() ? reading_->ProgressText() : "";
}

bool ComparedStudy::Tick() {
  if (!isReading_) return false;
  auto study = [this] {
    try {
      return reading_->TakeIfReady();
    } catch (...) {
      isReading_ = false;
      throw;
    }
  }();
  if (!study) return false;
  isReading_ = false;
  study_ = *std::move(study);
  Show(StudyFigures::pairs, PairsTable(study_));
  Show(StudyFigures::observers, ObserversTable(study_));
  Show(StudyFigures::icc, IccTable(study_));
  Show(StudyFigures::pooled, PooledTable(study_.pooled));
  return true;
}

void ComparedStudy::Show(StudyFigures which, FigureGrid table) {
  Shown& shown = shown_[static_cast<std::size_t>(which)];
  shown.table = std::move(table);
  if (shown.order) shown.table.SortBy(shown.order->column, shown.order->descending);
}

const FigureGrid& ComparedStudy::Table(StudyFigures which) const {
  return shown_[static_cast<std::size_t>(which)].table;
}

void ComparedStudy::SortBy(StudyFigures which, std::size_t column, bool descending) {
  Shown& shown = shown_[static_cast<std::size_t>(which)];
  shown.order = Order{column, descending};
  shown.table.SortBy(column, descending);
}

const StudyPair& ComparedStudy::PairOf(std::size_t row) const {
  return study_.pairs.at(std::stoul(Table(StudyFigures::pairs).rows.at(row).key));
}

std::string ComparedStudy::TotalsText() const {
  return Say(Text::pairsCompared,
             {Counted(study_.pairs.size(), "pair"), Counted(files_.size(), "observation"),
              Counted(study_.pooled.bothQuestions, "question"),
              study_.unread.size() + study_.remarks.size()});
}

std::string ComparedStudy::TroubleText() const {
  return Say(Text::pairsNotAllRead, {Counted(study_.unread.size(), "file")});
}

std::string ComparedStudy::LeftOutText() const {
  std::string text;
  const auto add = [&text](const std::string& line) { text += (text.empty() ? "" : "\n") + line; };
  for (const Problem& problem : study_.unread) add(problem.Sentence());
  for (const std::string& remark : study_.remarks) add(remark);
  return text;
}

}  // namespace orvex
