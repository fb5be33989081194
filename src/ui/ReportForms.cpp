#include "ui/ReportForms.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "editor/episode_editor.h"
#include "reports/episode_origin.h"
#include "reports/question_plot.h"
#include "reports/question_statistics.h"
#include "reports/time_summary.h"
#include "study/logged_class.h"
#include "ui/forms/frmClassPicture.h"
#include "ui/forms/frmQuestionPlot.h"
#include "ui/forms/frmQuestionStats.h"
#include "ui/forms/frmStudyPicture.h"
#include "ui/forms/frmTimeSummary.h"
#include "ui/print/PrintedClass.h"

namespace orvex {
namespace {

/// The episode that the reports on a single one are about; null if there is none.
const Episode* EpisodeOf(const ReportSubject& subject) {
  const EpisodeList& episodes = subject.observation.Episodes;
  const auto number = static_cast<std::size_t>(subject.episode);
  return number >= 1 && number <= episodes.size() ? &episodes[number - 1] : nullptr;
}

Printing PrintingOf(const Services& services) {
  return {services.prompter, services.storage};
}

/// Lets `leave` of `form`, which is shown as `self`, lead back to `back`.
template <typename Form, typename Signal>
void LeadBack(const Services& services, Form* form, Signal leave, Screen self, Screen back) {
  QObject::connect(form, leave, form, [&screens = services.screens, self, back] {
    screens.Show(back);
    screens.Close(self);
  });
}

/// Lets "Print All" of `form` store all reports on the subject's class.
template <typename Form>
void OfferAll(const Services& services, Form* form, const ReportSubject& subject) {
  QObject::connect(
      form, &Form::PrintAll, form,
      [printing = PrintingOf(services), observation = subject.observation, file = subject.file] {
        SaveClassPdf(LoggedClassOf(observation, file, {}), file, printing);
      });
}

/// The pages of a report on single episodes, `make` making it: of those with questions, and of the
/// one that the subject names.
template <typename Page, typename Make>
std::vector<Page> PagesOf(const ReportSubject& subject, const Make& make) {
  std::vector<Page> pages;
  int number = 0;
  for (const Episode& episode : subject.observation.Episodes) {
    ++number;
    if (episode.questions.empty() && number != subject.episode) continue;
    pages.push_back({number, make(number, episode), OriginOf(subject.observation.header, episode)});
  }
  return pages;
}

/// The statistics of all questions of these classes.
StatisticsPage WholeOf(std::span<const EpsObservation> classes) {
  return {0, MakeQuestionStatistics(classes), OriginOf(classes)};
}

}  // namespace

ReportSubject SubjectOf(const EpisodeEditor& editor, const EpisodeList& episodes) {
  return {.observation = {editor.File().Header(), episodes},
          .episode = editor.CurrentEpisode(),
          .file = editor.File().Path()};
}

ReportSubject SubjectOf(const std::filesystem::path& file, EpsObservation observation) {
  const EpisodeList& episodes = observation.Episodes;
  const auto asked = std::ranges::find_if(
      episodes, [](const Episode& episode) { return !episode.questions.empty(); });
  const auto number = asked == episodes.end() ? 1 : asked - episodes.begin() + 1;
  return {.observation = std::move(observation),
          .episode = static_cast<int>(number),
          .file = file,
          .isOpen = false};
}

std::unique_ptr<frmClassPicture> MakeClassPictureForm(const Services& services,
                                                      const ReportSubject& subject) {
  const std::filesystem::path& file = subject.file;
  auto form = std::make_unique<frmClassPicture>(LoggedClassOf(subject.observation, file, {}), file,
                                                PrintingOf(services));
  LeadBack(services, form.get(), &frmClassPicture::Back, Screen::classPicture, subject.back);
  // A class that waits for its survey is still in memory, where the editor would take its place.
  form->AllowOpening(subject.back != Screen::liveObservation);
  QObject::connect(form.get(), &frmClassPicture::OpenQuestion, form.get(),
                   [&screens = services.screens, file, isOpen = subject.isOpen](
                       int episode, int question, const std::string& text) {
                     if (isOpen) {
                       screens.ShowEditedQuestion(episode, question, text);
                     } else if (!screens.ShowQuestion(file, episode, question, text)) {
                       return;
                     }
                     screens.Close(Screen::classPicture);
                   });
  return form;
}

std::unique_ptr<frmTimeSummary> MakeTimeSummaryForm(const Services& services,
                                                    const ReportSubject& subject) {
  const EpsObservation& observation = subject.observation;
  auto form = std::make_unique<frmTimeSummary>(
      MakeTimeSummary(observation.header, observation.Episodes), PrintingOf(services));
  LeadBack(services, form.get(), &frmTimeSummary::Menu, Screen::timeSummary, subject.back);
  OfferAll(services, form.get(), subject);
  return form;
}

std::unique_ptr<frmQuestionStats> MakeQuestionStatsForm(const Services& services,
                                                        const ReportSubject& subject) {
  if (!EpisodeOf(subject)) return nullptr;
  const EpsHeader& header = subject.observation.header;
  auto pages = PagesOf<StatisticsPage>(subject, [&](int number, const Episode& episode) {
    return MakeQuestionStatistics(header.identity, number, episode);
  });
  auto form = std::make_unique<frmQuestionStats>(
      std::move(pages), subject.episode, WholeOf({&subject.observation, 1}), PrintingOf(services));
  LeadBack(services, form.get(), &frmQuestionStats::Menu, Screen::questionStats, subject.back);
  OfferAll(services, form.get(), subject);
  Screens& screens = services.screens;
  QObject::connect(form.get(), &frmQuestionStats::EditQuestions, form.get(),
                   [&screens, shown = form.get(), file = subject.file, isOpen = subject.isOpen] {
                     if (isOpen) {
                       screens.ShowQuestionEditor(EditorCaller::statistics, false);
                     } else if (!screens.ShowQuestions(file, shown->Episode())) {
                       return;
                     }
                     screens.Close(Screen::questionStats);
                   });
  QObject::connect(form.get(), &frmQuestionStats::Plot, form.get(), [&screens] {
    screens.Show(Screen::questionPlot);
    screens.Hide(Screen::questionStats);
  });
  return form;
}

std::unique_ptr<frmQuestionStats> MakeQuestionStatsForm(const Services& services,
                                                        std::span<const EpsObservation> classes) {
  auto form = std::make_unique<frmQuestionStats>(std::vector<StatisticsPage>(), 0, WholeOf(classes),
                                                 PrintingOf(services));
  LeadBack(services, form.get(), &frmQuestionStats::Menu, Screen::questionStats, Screen::study);
  return form;
}

std::unique_ptr<frmStudyPicture> MakeStudyPictureForm(const Services& services,
                                                      std::vector<PictureRow> rows) {
  auto form = std::make_unique<frmStudyPicture>(std::move(rows), services.program.DataPath,
                                                PrintingOf(services));
  LeadBack(services, form.get(), &frmStudyPicture::Back, Screen::studyPicture, Screen::study);
  return form;
}

std::unique_ptr<frmQuestionPlot> MakeQuestionPlotForm(const Services& services,
                                                      const ReportSubject& subject, Screen back) {
  if (!EpisodeOf(subject)) return nullptr;
  const Identity& identity = subject.observation.header.identity;
  auto pages = PagesOf<PlotPage>(subject, [&](int number, const Episode& episode) {
    return MakeQuestionPlot(identity, number, episode);
  });
  auto form =
      std::make_unique<frmQuestionPlot>(std::move(pages), subject.episode, PrintingOf(services));
  LeadBack(services, form.get(), &frmQuestionPlot::Back, Screen::questionPlot, back);
  OfferAll(services, form.get(), subject);
  return form;
}

}  // namespace orvex
