#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "ui/FormRow.h"
#include "ui/ReportForms.h"
#include "ui/forms/frmAboutInputBox.h"
#include "ui/forms/frmClassAct.h"
#include "ui/forms/frmClassPicture.h"
#include "ui/forms/frmEnterQA.h"
#include "ui/forms/frmInput1.h"
#include "ui/forms/frmQuestionPlot.h"
#include "ui/forms/frmQuestionStats.h"
#include "ui/forms/frmSplash.h"
#include "ui/forms/frmStudy.h"
#include "ui/forms/frmTimeSummary.h"

namespace orvex {

const Forms::Row& Forms::RowOf(Screen screen) {
  const auto report = [](auto make) {
    return [make](Forms& forms) {
      const auto subject = forms.Subject();
      return subject ? LoadedForm(make(forms, *subject)) : LoadedForm();
    };
  };
  static const std::map<Screen, Row> rows = {
      {Screen::mainMenu,
       {.make = [](Forms& forms) { return std::make_unique<frmSplash>(forms.services_); }}},
      {Screen::study,
       {.make = [](Forms& forms) { return std::make_unique<frmStudy>(forms.services_); },
        .over = {Screen::mainMenu}}},
      {Screen::studyPicture, {.over = {Screen::study}}},
      {Screen::agreementStudy, {.over = {Screen::study}}},
      {Screen::agreement, {.over = {Screen::agreementStudy, Screen::study}}},
      {Screen::setUp,
       {.make = [](Forms& forms) { return std::make_unique<frmInput1>(forms.services_); }}},
      {Screen::liveObservation,
       {.make = [](Forms& forms) { return std::make_unique<frmClassAct>(forms.services_); },
        .closes = {Screen::survey, Screen::questionEditor, Screen::questionEntry,
                   Screen::aboutText}}},
      {Screen::aboutText,
       {.make =
            [](Forms& forms) {
              frmClassAct& live = forms.LiveForm();
              return std::make_unique<frmAboutInputBox>(live.Live(), &live);
            }}},
      {Screen::questionEntry,
       {.make =
            [](Forms& forms) {
              frmClassAct& live = forms.LiveForm();
              return std::make_unique<frmEnterQA>(forms.services_, live.Live(), live.Clocks());
            },
        .over = {Screen::liveObservation}}},
      {Screen::episodeEditor, {.over = {Screen::agreement, Screen::study}}},
      {Screen::classPicture,
       {.make = report([](Forms& forms, const ReportSubject& subject) {
          return MakeClassPictureForm(forms.services_, subject);
        }),
        .over = {Screen::liveObservation, Screen::episodeEditor, Screen::study}}},
      {Screen::timeSummary,
       {.make = report([](Forms& forms, const ReportSubject& subject) {
          return MakeTimeSummaryForm(forms.services_, subject);
        }),
        .over = {Screen::episodeEditor, Screen::study}}},
      {Screen::questionStats,
       {.make = report([](Forms& forms, const ReportSubject& subject) {
          return MakeQuestionStatsForm(forms.services_, subject);
        }),
        .over = {Screen::episodeEditor, Screen::study}}},
      {Screen::questionPlot,
       {.make = report([](Forms& forms, const ReportSubject& subject) {
          const auto* stats = forms.Get<frmQuestionStats>();
          if (!stats || !stats->isVisible()) {
            return MakeQuestionPlotForm(forms.services_, subject, subject.back);
          }
          ReportSubject shown = subject;
          shown.episode = stats->Episode();
          return MakeQuestionPlotForm(forms.services_, shown, Screen::questionStats);
        }),
        .over = {Screen::episodeEditor, Screen::study}}},
      {Screen::questionEditor,
       {.over = {Screen::questionEntry, Screen::liveObservation, Screen::episodeEditor}}},
      {Screen::survey, {.over = {Screen::liveObservation, Screen::study}}},
      {Screen::listOfFiles, {.over = {Screen::mainMenu}}},
  };
  return rows.at(screen);
}

}  // namespace orvex
