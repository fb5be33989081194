#include "study/study_actions.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>

#include "desk/prompter.h"
#include "desk/screens.h"
#include "model/texts.h"
#include "recovery/unfinished.h"
#include "recovery/unfinished_class.h"
#include "store/numbers.h"
#include "study/class_key.h"
#include "study/study.h"
#include "study/study_row.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// What opening an observation means, by what is there.
constexpr std::array kOpening = {StudyAction::takeUpClass, StudyAction::editEpisodes,
                                 StudyAction::editSurvey, StudyAction::editNotes,
                                 StudyAction::showLog};

/// True when two of the observations are of one class.
bool HasPair(const std::vector<const StudyRow*>& rows) {
  std::set<ClassKey> classes;
  return std::ranges::any_of(rows, [&classes](const StudyRow* row) {
    return !classes.insert(ClassKeyOf(row->identity, row->date)).second;
  });
}

/// The number that says who of two observers comes first.
double ObservationNumber(const StudyRow* row) {
  return ParseNumber(row->identity.ObservNum).value_or(0);
}

StudyObservation ForTables(const StudyRow& row) {
  return {.name = row.name,
          .episodes = row.File(FileKind::episodes),
          .survey = row.File(FileKind::survey)};
}

}  // namespace

bool IsPossible(StudyAction action, const StudyRow& row) {
  const auto isPossible = [&row](StudyAction other) { return IsPossible(other, row); };
  switch (action) {
    case StudyAction::open:
      return std::ranges::any_of(kOpening, isPossible);
    case StudyAction::takeUpClass:
      return row.Has(FileKind::keptClass);
    case StudyAction::editEpisodes:
      return row.Has(FileKind::episodes);
    case StudyAction::editSurvey:
      return row.Has(FileKind::survey);
    case StudyAction::editNotes:
      return row.Has(FileKind::fieldNotes);
    case StudyAction::showLog:
      return row.Has(FileKind::sessionLog);
    case StudyAction::showStatistics:
      return row.summary && row.summary->counts.Total > 0;
    case StudyAction::showTimeSummary:
    case StudyAction::showPicture:
      return row.summary.has_value();
    case StudyAction::proof:
      return row.summary && row.summary->notFullyCoded > 0;
  }
  return false;
}

/// Lets a form take the study's place: `show` returns false if there is none to show. The file's
/// folder becomes the data folder, because a survey is saved there.
template <typename Show>
void StudyActions::Open(const fs::path& file, Show show) {
  services_.program = before_;
  services_.program.DataPath = file.parent_path();
  if (show()) services_.screens.Hide(Screen::study);
}

void StudyActions::Do(StudyAction action, const StudyRow& row) {
  if (!IsPossible(action, row)) return;
  Screens& screens = services_.screens;
  const fs::path eps = row.File(FileKind::episodes);
  const fs::path survey = row.File(FileKind::survey);
  switch (action) {
    case StudyAction::open:
      return Do(*std::ranges::find_if(kOpening,
                                      [&row](StudyAction other) { return IsPossible(other, row); }),
                row);
    case StudyAction::takeUpClass:
      return OfferClass(row.File(FileKind::keptClass));
    case StudyAction::editEpisodes:
      return Open(eps, [&] { return screens.ShowEpisodeEditor(eps, Kept::areOffered); });
    case StudyAction::editSurvey:
      return Open(survey, [&] { return screens.ShowSurveyFile(survey, Kept::areOffered); });
    case StudyAction::editNotes:
      return screens.ShowFieldNotes(row.File(FileKind::fieldNotes), Kept::areOffered);
    case StudyAction::showLog:
      return screens.ShowLog(row.File(FileKind::sessionLog));
    case StudyAction::showStatistics:
      return Open(eps, [&] { return screens.ShowReport(eps, Screen::questionStats); });
    case StudyAction::showTimeSummary:
      return Open(eps, [&] { return screens.ShowReport(eps, Screen::timeSummary); });
    case StudyAction::showPicture:
      return Open(eps, [&] { return screens.ShowReport(eps, Screen::classPicture); });
    case StudyAction::proof:
      return Open(eps, [&] { return screens.ShowFirstGap(eps); });
  }
}

void StudyActions::EditQuestion(const QuestionRow& question) {
  // Copies: the question may move on while its file is read.
  const fs::path eps = question.observation->File(FileKind::episodes);
  const std::string text(question.text);
  Open(eps, [&, episode = question.episode, number = question.number] {
    return services_.screens.ShowQuestion(eps, episode, number, text);
  });
}

void StudyActions::OfferClass(const fs::path& kept) {
  services_.program = before_;
  if (OfferUnfinished(services_.prompter, UnfinishedClassAt(services_, kept))) {
    services_.screens.Close(Screen::study);
  }
}

void StudyActions::MakeTables(const Study& study, const std::vector<std::size_t>& selected) {
  StudySelection selection = {.folder = study.Folder(), .shown = {}, .selected = {}};
  for (std::size_t i = 0; i < study.Count(); ++i)
    selection.shown.push_back(ForTables(study.Row(i)));
  for (const std::size_t i : selected) selection.selected.push_back(ForTables(study.Row(i)));
  services_.screens.ShowTables(selection);
}

void StudyActions::ShowTogether(StudyAction action, ShowFiles show, const Study& study,
                                const std::vector<std::size_t>& selected) {
  std::vector<fs::path> files;
  for (const std::size_t position : selected) {
    const StudyRow& row = study.Row(position);
    if (IsPossible(action, row)) files.push_back(row.File(FileKind::episodes));
  }
  services_.program = before_;
  if (!files.empty() && (services_.screens.*show)(files)) services_.screens.Hide(Screen::study);
}

void StudyActions::ShowStatistics(const Study& study, const std::vector<std::size_t>& selected) {
  ShowTogether(StudyAction::showStatistics, &Screens::ShowStatistics, study, selected);
}

void StudyActions::ShowPictures(const Study& study, const std::vector<std::size_t>& selected) {
  ShowTogether(StudyAction::showPicture, &Screens::ShowStudyPicture, study, selected);
}

void StudyActions::ShowAgreement(const Study& study, const std::vector<std::size_t>& selected) {
  std::vector<const StudyRow*> rows;
  const auto add = [&](std::size_t position) {
    const StudyRow& row = study.Row(position);
    if (row.Has(FileKind::episodes)) rows.push_back(&row);
  };
  if (selected.size() > 1) {
    std::ranges::for_each(selected, add);
  } else {
    for (std::size_t i = 0; i < study.Count(); ++i) add(i);
  }
  const bool isOnePair = selected.size() == 2 && rows.size() == 2;
  if (!isOnePair && !HasPair(rows)) {
    return services_.prompter.Tell(Say(Text::noPairAmong));
  }
  if (isOnePair) std::ranges::stable_sort(rows, {}, ObservationNumber);
  std::vector<fs::path> files;
  files.reserve(rows.size());
  for (const StudyRow* row : rows) files.push_back(row->File(FileKind::episodes));
  services_.program = before_;
  if (isOnePair) {
    if (!services_.screens.ShowAgreement(files[0], files[1], std::nullopt)) return;
  } else {
    services_.screens.ShowAgreements(files);
  }
  services_.screens.Hide(Screen::study);
}

void StudyActions::Close() {
  services_.program = before_;
  services_.screens.Show(Screen::mainMenu);
  services_.screens.Close(Screen::study);
}

}  // namespace orvex
