#pragma once

#include <memory>

#include "desk/screens.h"
#include "desk/services.h"

namespace orvex {

class EpisodeEditor;
class frmQuestionPlot;
class frmQuestionStats;
class frmTimeSummary;

/// The forms of the reports on what `editor` shows, with their buttons connected to other forms.
/// Reports on a single episode are null if there is no episode.
std::unique_ptr<frmTimeSummary> MakeTimeSummaryForm(const Services& services,
                                                    const EpisodeEditor& editor);
std::unique_ptr<frmQuestionStats> MakeQuestionStatsForm(const Services& services,
                                                        const EpisodeEditor& editor);
/// `back` is the form to show again when the user leaves the plot.
std::unique_ptr<frmQuestionPlot> MakeQuestionPlotForm(const Services& services,
                                                      const EpisodeEditor& editor, Screen back);

}  // namespace orvex
