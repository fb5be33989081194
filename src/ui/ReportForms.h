#pragma once

#include <memory>

#include "desk/screens.h"
#include "desk/services.h"

namespace orvex {

class EpisodeEditor;
class frmQuestionPlot;
class frmQuestionStats;
class frmTimeSummary;

/// The forms of the reports on what `editor` shows, with the ways that lead on from them. Those on
/// an episode are null when there is none.
std::unique_ptr<frmTimeSummary> MakeTimeSummaryForm(const Services& services,
                                                    const EpisodeEditor& editor);
std::unique_ptr<frmQuestionStats> MakeQuestionStatsForm(const Services& services,
                                                        const EpisodeEditor& editor);
/// `back` is the form that is shown again when the plot is left.
std::unique_ptr<frmQuestionPlot> MakeQuestionPlotForm(const Services& services,
                                                      const EpisodeEditor& editor, Screen back);

}  // namespace orvex
