#include "study/study_actions.h"

#include "desk/screens.h"
#include "recovery/unfinished.h"
#include "recovery/unfinished_class.h"

namespace orvex {

namespace fs = std::filesystem;

/// Lets a form take the study's place: `show` returns false if there is none to show. The file's
/// folder becomes the data folder, because a survey is saved there.
template <typename Show>
void StudyActions::Open(const fs::path& file, Show show) {
  services_.program = before_;
  services_.program.DataPath = file.parent_path();
  if (show(services_.screens)) services_.screens.Hide(Screen::study);
}

void StudyActions::EditEpisodes(const fs::path& eps) {
  Open(eps, [&](Screens& screens) { return screens.ShowEpisodeEditor(eps, Kept::areOffered); });
}

void StudyActions::EditQuestion(const fs::path& eps, int episode, int question) {
  Open(eps, [&](Screens& screens) { return screens.ShowQuestion(eps, episode, question); });
}

void StudyActions::Proof(const fs::path& eps) {
  Open(eps, [&](Screens& screens) { return screens.ShowFirstGap(eps); });
}

void StudyActions::ShowStatistics(const fs::path& eps) {
  Open(eps, [&](Screens& screens) { return screens.ShowReport(eps, Screen::questionStats); });
}

void StudyActions::ShowTimeSummary(const fs::path& eps) {
  Open(eps, [&](Screens& screens) { return screens.ShowReport(eps, Screen::timeSummary); });
}

void StudyActions::EditSurvey(const fs::path& sur) {
  Open(sur, [&](Screens& screens) { return screens.ShowSurveyFile(sur, Kept::areOffered); });
}

void StudyActions::EditNotes(const fs::path& nte) {
  services_.screens.ShowFieldNotes(nte, Kept::areOffered);
}

void StudyActions::ShowLog(const fs::path& bak) {
  services_.screens.ShowLog(bak);
}

void StudyActions::OfferClass(const fs::path& path) {
  services_.program = before_;
  if (OfferUnfinished(services_.prompter, UnfinishedClassAt(services_, path))) {
    services_.screens.Close(Screen::study);
  }
}

void StudyActions::Close() {
  services_.program = before_;
  services_.screens.Show(Screen::mainMenu);
  services_.screens.Close(Screen::study);
}

}  // namespace orvex
