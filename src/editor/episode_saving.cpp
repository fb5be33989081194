#include <utility>

#include "desk/prompter.h"
#include "desk/proof.h"
#include "desk/screens.h"
#include "editor/episode_editor.h"
#include "model/program.h"
#include "model/validation.h"

namespace orvex {

void EpisodeEditor::Activate() {
  RecordOutsideChanges();
  UpdateCmdButtonStatus();
}

bool EpisodeEditor::Save() {
  RecordOutsideChanges();
  LeaveBox();
  if (!file_.Save(services_, Episodes())) return false;
  history_.MarkSaved();
  keeper_->Saved(file_.Path(), file_.Bytes());
  return true;
}

void EpisodeEditor::Keep() {
  if (!keeper_) return;
  if (kept_ == history_.Changes()) return keeper_->Retry();
  kept_ = history_.Changes();
  std::optional<std::string> bytes;
  if (Modified()) bytes = FormatEps(file_.Header(), Episodes());
  keeper_->Keep(std::move(bytes));
}

void EpisodeEditor::AwaitKept() {
  Keep();
  if (keeper_) keeper_->AwaitStored();
}

void EpisodeEditor::EditQuestions() {
  if (!HasEpisode()) return;
  LeaveBox();
  services_.screens.ShowQuestionEditor(EditorCaller::episodeEditor, false);
  services_.screens.Hide(Screen::episodeEditor);
}

void EpisodeEditor::Proof() {
  LeaveBox();
  if (!FindNextGap(services_.program, services_.prompter)) return;
  services_.screens.ShowQuestionEditor(EditorCaller::episodeEditor, true);
  services_.screens.Hide(Screen::episodeEditor);
}

void EpisodeEditor::ShowTimeSummary() {
  ShowReport(Screen::timeSummary);
}

void EpisodeEditor::ShowStatistics() {
  if (HasQuestions()) ShowReport(Screen::questionStats);
}

void EpisodeEditor::ShowPlot() {
  if (HasQuestions()) ShowReport(Screen::questionPlot);
}

void EpisodeEditor::ShowReport(Screen report) {
  LeaveBox();
  services_.screens.Show(report);
  services_.screens.Hide(Screen::episodeEditor);
}

void EpisodeEditor::Quit() {
  LeaveBox();
  const Answer save =
      services_.prompter.Ask({.text = "Save Data?",
                              .buttons = Buttons::yesNo,
                              .defaultAnswer = Modified() ? Answer::yes : Answer::no,
                              .dismissed = Answer::cancel});
  // To leave the question open is to stay, and who wanted to save and could not is not made to lose
  // the changes.
  if (save == Answer::cancel || (save == Answer::yes && !Save())) return;
  const Answer another = services_.prompter.Ask({.text = "Edit Another File?",
                                                 .buttons = Buttons::yesNo,
                                                 .defaultAnswer = Answer::no,
                                                 .dismissed = Answer::cancel});
  if (another == Answer::cancel) return;
  keeper_->Drop();
  if (another != Answer::yes) {
    services_.screens.EndProgram();
    return;
  }
  Forget();
  OpenAnother();
}

/// Leaves the file: nothing of it is shown while another one is chosen.
void EpisodeEditor::Forget() {
  Episodes().clear();
  history_.Start(Episodes(), true);
  keeper_.reset();
  cut_.reset();
  FillEpisodeList();
  currentEpisode_ = -1;
  FillSegmentList();
}

void EpisodeEditor::OpenAnother() {
  for (;;) {
    const auto path = ChooseEpisodeFile(services_);
    if (path.empty()) return services_.screens.EndProgram();
    Opening opening = OpenForEditing(services_, path);
    if (opening.opened) return Load(std::move(*opening.opened));
    if (opening.programEnds) return;
  }
}

}  // namespace orvex
