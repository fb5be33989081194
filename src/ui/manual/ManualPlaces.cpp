#include "ui/manual/ManualPlaces.h"

#include <QHash>

namespace orvex {
namespace {

const QHash<QString, ManualPlace>& Places() {
  const auto place = [](const char* chapter, const char* keys = "") {
    return ManualPlace{QString::fromLatin1(chapter), QString::fromLatin1(keys)};
  };
  static const QHash<QString, ManualPlace> places = {
      {QStringLiteral("frmSplash"), place("first-class.md", "Main menu")},
      {QStringLiteral("dlgUnfinished"), place("trouble.md")},
      {QStringLiteral("frmInput1"), place("first-class.md#2-start-the-class")},
      {QStringLiteral("frmClassAct"), place("activities.md", "Class Activity Menu")},
      {QStringLiteral("frmAboutInputBox"), place("activities.md#what-belongs-to-some-of-them")},
      {QStringLiteral("frmAdjust"), place("first-class.md#4-when-something-else-begins")},
      {QStringLiteral("dlgFieldNote"),
       place("first-class.md#7-write-down-what-the-codes-do-not-hold")},
      {QStringLiteral("frmOfftask"), place("offtask.md#how")},
      {QStringLiteral("frmEnterQA"), place("coding.md", "Question entry")},
      {QStringLiteral("frmQA"), place("editing.md#the-question-editor", "Question editor")},
      {QStringLiteral("frmClassEdit"), place("editing.md", "Episode editor")},
      {QStringLiteral("frmChooseQAs"), place("editing.md#the-episode-editor")},
      {QStringLiteral("dlgDivideTime"), place("editing.md#the-episode-editor")},
      {QStringLiteral("dlgTimer"), place("editing.md#the-episode-editor")},
      {QStringLiteral("frmMatrices"), place("editing.md#the-survey-and-the-notes", "Survey")},
      {QStringLiteral("frmQuestionStats"),
       place("reports.md#questions-answer-statistics", "Reports")},
      {QStringLiteral("frmQuestionPlot"), place("reports.md#question-plot", "Reports")},
      {QStringLiteral("frmTimeSummary"), place("reports.md#time-summary", "Reports")},
      {QStringLiteral("frmClassPicture"), place("pictures.md", "Reports")},
      {QStringLiteral("frmStudyPicture"), place("pictures.md", "Reports")},
      {QStringLiteral("frmStudy"), place("study.md", "Study")},
      {QStringLiteral("dlgTables"), place("study.md#tables-for-the-analysis")},
      {QStringLiteral("dlgLog"), place("study.md", "Session log")},
      {QStringLiteral("frmListOfFiles"), place("study.md#tables-for-the-analysis")},
      {QStringLiteral("frmAgreement"), place("agreement.md", "Agreement")},
      {QStringLiteral("dlgManual"), place("index.md#reading-the-manual")},
      {QStringLiteral("frmAgreementStudy"), place("agreement.md", "Agreement")},
  };
  return places;
}

}  // namespace

ManualPlace ManualPlaceOf(const QString& form) {
  return Places().value(form, {QStringLiteral("index.md"), {}});
}

QStringList ExplainedForms() {
  return Places().keys();
}

QString HeadingName(const QString& heading) {
  QString name;
  for (const QChar letter : heading.toLower()) {
    if (letter.isLetterOrNumber()) {
      name += letter;
    } else if (!name.isEmpty() && !name.endsWith(QLatin1Char('-'))) {
      name += QLatin1Char('-');
    }
  }
  while (name.endsWith(QLatin1Char('-'))) name.chop(1);
  return name;
}

}  // namespace orvex
