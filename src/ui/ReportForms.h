#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <vector>

#include "desk/screens.h"
#include "desk/services.h"
#include "model/episode.h"
#include "store/eps_file.h"

namespace orvex {

class EpisodeEditor;
class frmClassPicture;
class frmQuestionPlot;
class frmQuestionStats;
class frmStudyPicture;
class frmTimeSummary;
struct PictureRow;

/// What reports are about, and where their user goes from there.
struct ReportSubject {
  EpsObservation observation;
  int episode = 0;  ///< which one the reports on a single episode are about, from 1
  Screen back = Screen::episodeEditor;  ///< the form to show again when a report is left
  std::filesystem::path file = {};      ///< the observation's
  bool isOpen = true;                   ///< in the episode editor
};
/// What `editor` shows of `episodes`.
ReportSubject SubjectOf(const EpisodeEditor& editor, const EpisodeList& episodes);
/// A file of the study, which is not open in the editor, and its first episode with questions.
ReportSubject SubjectOf(const std::filesystem::path& file, EpsObservation observation);

/// The forms of the reports and the class's picture, with their buttons connected to other forms.
/// Reports on a single episode are null if there is no episode.
std::unique_ptr<frmClassPicture> MakeClassPictureForm(const Services& services,
                                                      const ReportSubject& subject);
std::unique_ptr<frmTimeSummary> MakeTimeSummaryForm(const Services& services,
                                                    const ReportSubject& subject);
std::unique_ptr<frmQuestionStats> MakeQuestionStatsForm(const Services& services,
                                                        const ReportSubject& subject);
/// The statistics of several classes.
std::unique_ptr<frmQuestionStats> MakeQuestionStatsForm(const Services& services,
                                                        std::span<const EpsObservation> classes);
/// Classes of the study beneath each other.
std::unique_ptr<frmStudyPicture> MakeStudyPictureForm(const Services& services,
                                                      std::vector<PictureRow> rows);
/// `back` is the form to show again when the user leaves the plot.
std::unique_ptr<frmQuestionPlot> MakeQuestionPlotForm(const Services& services,
                                                      const ReportSubject& subject, Screen back);

}  // namespace orvex
