#include "reports/episode_origin.h"
#include "reports/question_plot.h"
#include "reports/question_statistics.h"
#include "reports/time_summary.h"
#include "ui/Forms.h"
#include "ui/Present.h"
#include "ui/forms/frmClassEdit.h"
#include "ui/forms/frmQuestionPlot.h"
#include "ui/forms/frmQuestionStats.h"
#include "ui/forms/frmTimeSummary.h"

namespace orvex {

/// The episode that the episode editor shows; null when there is none.
const Episode* Forms::EditedEpisode() const {
  if (!classEdit_) return nullptr;
  const EpisodeList& episodes = services_.program.Episodes;
  const auto number = static_cast<std::size_t>(classEdit_->Editor().CurrentEpisode());
  return number >= 1 && number <= episodes.size() ? &episodes[number - 1] : nullptr;
}

void Forms::ShowTimeSummary() {
  if (!classEdit_) return;
  if (!timeSummary_) {
    const EpsHeader& header = classEdit_->Editor().File().Header();
    timeSummary_ = std::make_unique<frmTimeSummary>(
        MakeTimeSummary(header, services_.program.Episodes), services_);
    PlaceOver(*timeSummary_, *classEdit_);
    QObject::connect(timeSummary_.get(), &frmTimeSummary::Menu, &ending_, [this] {
      Show(Screen::episodeEditor);
      Close(Screen::timeSummary);
    });
  }
  Present(*timeSummary_);
}

void Forms::ShowQuestionStats() {
  const Episode* episode = EditedEpisode();
  if (!episode) return;
  if (!questionStats_) {
    const EpisodeEditor& editor = classEdit_->Editor();
    const EpsHeader& header = editor.File().Header();
    questionStats_ = std::make_unique<frmQuestionStats>(
        MakeQuestionStatistics(header.identity, editor.CurrentEpisode(), *episode),
        OriginOf(header, *episode), services_);
    PlaceOver(*questionStats_, *classEdit_);
    const frmQuestionStats* form = questionStats_.get();
    QObject::connect(form, &frmQuestionStats::Menu, &ending_, [this] {
      Show(Screen::episodeEditor);
      Close(Screen::questionStats);
    });
    QObject::connect(form, &frmQuestionStats::EditQuestions, &ending_, [this] {
      ShowQuestionEditor(EditorCaller::statistics, false);
      Close(Screen::questionStats);
    });
    QObject::connect(form, &frmQuestionStats::Plot, &ending_, [this] {
      Show(Screen::questionPlot);
      Hide(Screen::questionStats);
    });
  }
  Present(*questionStats_);
}

void Forms::ShowQuestionPlot() {
  const Episode* episode = EditedEpisode();
  if (!episode) return;
  if (!questionPlot_) {
    const bool fromStats = questionStats_ && questionStats_->isVisible();
    const EpisodeEditor& editor = classEdit_->Editor();
    const EpsHeader& header = editor.File().Header();
    questionPlot_ = std::make_unique<frmQuestionPlot>(
        MakeQuestionPlot(header.identity, editor.CurrentEpisode(), *episode),
        OriginOf(header, *episode), fromStats ? PlotCaller::statistics : PlotCaller::episodeEditor,
        services_);
    PlaceOver(*questionPlot_, *classEdit_);
    QObject::connect(
        questionPlot_.get(), &frmQuestionPlot::Back, &ending_, [this](PlotCaller caller) {
          Show(caller == PlotCaller::statistics ? Screen::questionStats : Screen::episodeEditor);
          Close(Screen::questionPlot);
        });
  }
  Present(*questionPlot_);
}

}  // namespace orvex
