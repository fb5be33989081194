#include "ui/ReportForms.h"

#include <cstddef>

#include "editor/episode_editor.h"
#include "model/program.h"
#include "reports/episode_origin.h"
#include "reports/question_plot.h"
#include "reports/question_statistics.h"
#include "reports/time_summary.h"
#include "ui/forms/frmQuestionPlot.h"
#include "ui/forms/frmQuestionStats.h"
#include "ui/forms/frmTimeSummary.h"

namespace orvex {
namespace {

/// The episode that `editor` shows; null if there is none.
const Episode* EditedEpisode(const Services& services, const EpisodeEditor& editor) {
  const EpisodeList& episodes = services.program.Episodes;
  const auto number = static_cast<std::size_t>(editor.CurrentEpisode());
  return number >= 1 && number <= episodes.size() ? &episodes[number - 1] : nullptr;
}

Printing PrintingOf(const Services& services) {
  return {services.prompter, services.storage};
}

}  // namespace

std::unique_ptr<frmTimeSummary> MakeTimeSummaryForm(const Services& services,
                                                    const EpisodeEditor& editor) {
  auto form = std::make_unique<frmTimeSummary>(
      MakeTimeSummary(editor.File().Header(), services.program.Episodes), PrintingOf(services));
  QObject::connect(form.get(), &frmTimeSummary::Menu, form.get(), [&screens = services.screens] {
    screens.Show(Screen::episodeEditor);
    screens.Close(Screen::timeSummary);
  });
  return form;
}

std::unique_ptr<frmQuestionStats> MakeQuestionStatsForm(const Services& services,
                                                        const EpisodeEditor& editor) {
  const Episode* episode = EditedEpisode(services, editor);
  if (!episode) return nullptr;
  const EpsHeader& header = editor.File().Header();
  auto form = std::make_unique<frmQuestionStats>(
      MakeQuestionStatistics(header.identity, editor.CurrentEpisode(), *episode),
      OriginOf(header, *episode), PrintingOf(services));
  Screens& screens = services.screens;
  QObject::connect(form.get(), &frmQuestionStats::Menu, form.get(), [&screens] {
    screens.Show(Screen::episodeEditor);
    screens.Close(Screen::questionStats);
  });
  QObject::connect(form.get(), &frmQuestionStats::EditQuestions, form.get(), [&screens] {
    screens.ShowQuestionEditor(EditorCaller::statistics, false);
    screens.Close(Screen::questionStats);
  });
  QObject::connect(form.get(), &frmQuestionStats::Plot, form.get(), [&screens] {
    screens.Show(Screen::questionPlot);
    screens.Hide(Screen::questionStats);
  });
  return form;
}

std::unique_ptr<frmQuestionPlot> MakeQuestionPlotForm(const Services& services,
                                                      const EpisodeEditor& editor, Screen back) {
  const Episode* episode = EditedEpisode(services, editor);
  if (!episode) return nullptr;
  const EpsHeader& header = editor.File().Header();
  auto form = std::make_unique<frmQuestionPlot>(
      MakeQuestionPlot(header.identity, editor.CurrentEpisode(), *episode),
      OriginOf(header, *episode), PrintingOf(services));
  QObject::connect(form.get(), &frmQuestionPlot::Back, form.get(),
                   [&screens = services.screens, back] {
                     screens.Show(back);
                     screens.Close(Screen::questionPlot);
                   });
  return form;
}

}  // namespace orvex
