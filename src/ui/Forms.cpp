#include "ui/Forms.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <utility>

#include "editor/edited_file.h"
#include "recovery/recovery_file.h"
#include "start/field_notes_file.h"
#include "survey/load_survey.h"
#include "ui/OnceInUse.h"
#include "ui/Present.h"
#include "ui/forms/frmAboutInputBox.h"
#include "ui/forms/frmClassAct.h"
#include "ui/forms/frmClassEdit.h"
#include "ui/forms/frmEnterQA.h"
#include "ui/forms/frmInput1.h"
#include "ui/forms/frmListOfFiles.h"
#include "ui/forms/frmMatrices.h"
#include "ui/forms/frmQA.h"
#include "ui/forms/frmQuestionPlot.h"
#include "ui/forms/frmQuestionStats.h"
#include "ui/forms/frmSplash.h"
#include "ui/forms/frmTimeSummary.h"
#include "ui/widgets/FitToScreen.h"

namespace orvex {

Forms::Forms(Program& program, SessionLog& log, RecoveryFile& recovery, Storage& storage,
             const Clock& clock, Prompter& prompter, std::filesystem::path programFolder)
    : programFolder_(std::move(programFolder)), services_{program, log,           recovery,
                                                          storage, clock,         prompter,
                                                          *this,   programFolder_} {
  QApplication::setQuitOnLastWindowClosed(false);
  QObject::connect(qApp, &QApplication::lastWindowClosed, &ending_, [this] { EndProgram(); });
  // Whatever an event has changed is kept before the program waits for the next one.
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                   &ending_, [this] {
                     if (classAct_) classAct_->Live().Keep();
                     if (classEdit_) classEdit_->Editor().Keep();
                   });
}

Forms::~Forms() = default;

QWidget* Forms::Loaded(Screen screen) const {
  switch (screen) {
    case Screen::mainMenu:
      return splash_.get();
    case Screen::setUp:
      return input1_.get();
    case Screen::liveObservation:
      return classAct_.get();
    case Screen::aboutText:
      return aboutInputBox_.get();
    case Screen::questionEntry:
      return enterQA_.get();
    case Screen::questionEditor:
      return qa_.get();
    case Screen::survey:
      return matrices_.get();
    case Screen::episodeEditor:
      return classEdit_.get();
    case Screen::timeSummary:
      return timeSummary_.get();
    case Screen::questionStats:
      return questionStats_.get();
    case Screen::questionPlot:
      return questionPlot_.get();
    case Screen::listOfFiles:
      return listOfFiles_.get();
  }
  return nullptr;
}

frmClassAct& Forms::LiveForm() {
  if (!classAct_) classAct_ = std::make_unique<frmClassAct>(services_);
  return *classAct_;
}

void Forms::Show(Screen screen) {
  switch (screen) {
    case Screen::mainMenu:
      if (!splash_) splash_ = std::make_unique<frmSplash>(services_);
      return Present(*splash_);
    case Screen::setUp:
      if (!input1_) input1_ = std::make_unique<frmInput1>(services_);
      return Present(*input1_);
    case Screen::liveObservation:
      return Present(LiveForm());
    case Screen::aboutText:
      return ShowAboutText();
    case Screen::questionEntry:
      if (!enterQA_) {
        frmClassAct& live = LiveForm();
        enterQA_ = std::make_unique<frmEnterQA>(services_, live.Live(), live.Clocks());
        // It takes the live form's place, also on the screen.
        PlaceOver(*enterQA_, live);
      }
      return Present(*enterQA_);
    case Screen::questionEditor:
      if (qa_) Present(*qa_);
      return;
    case Screen::survey:
      if (matrices_) Present(*matrices_);
      return;
    case Screen::episodeEditor:
      if (!classEdit_) return;
      classEdit_->Editor().Activate();
      return Present(*classEdit_);
    case Screen::timeSummary:
      return ShowTimeSummary();
    case Screen::questionStats:
      return ShowQuestionStats();
    case Screen::questionPlot:
      return ShowQuestionPlot();
    case Screen::listOfFiles:
      if (listOfFiles_) Present(*listOfFiles_);
      return;
  }
}

void Forms::ShowAboutText() {
  if (!aboutInputBox_) {
    frmClassAct& live = LiveForm();
    aboutInputBox_ = std::make_unique<frmAboutInputBox>(live.Live(), &live);
  }
  aboutInputBox_->Refresh();
  aboutInputBox_->exec();
}

void Forms::Hide(Screen screen) {
  if (QWidget* form = Loaded(screen)) form->hide();
}

void Forms::Close(Screen screen) {
  switch (screen) {
    case Screen::mainMenu:
      return Unload(splash_);
    case Screen::setUp:
      return Unload(input1_);
    case Screen::liveObservation:
      Unload(matrices_);
      Unload(qa_);
      Unload(enterQA_);
      Unload(aboutInputBox_);
      return Unload(classAct_);
    case Screen::aboutText:
      return Unload(aboutInputBox_);
    case Screen::questionEntry:
      return Unload(enterQA_);
    case Screen::questionEditor:
      return Unload(qa_);
    case Screen::survey:
      return Unload(matrices_);
    case Screen::episodeEditor:
      return Unload(classEdit_);
    case Screen::timeSummary:
      return Unload(timeSummary_);
    case Screen::questionStats:
      return Unload(questionStats_);
    case Screen::questionPlot:
      return Unload(questionPlot_);
    case Screen::listOfFiles:
      return Unload(listOfFiles_);
  }
}

void Forms::ShowQuestionEditor(EditorCaller caller, bool proofMode) {
  QuestionEditorStart start = {.caller = caller, .proofMode = proofMode};
  const QWidget* opener = classEdit_.get();
  if (caller == EditorCaller::liveObservation || caller == EditorCaller::questionEntry) {
    frmClassAct& live = LiveForm();
    qa_ = std::make_unique<frmQA>(services_, start, &live.Live(), &live.Clocks());
    opener = &live;
    if (caller == EditorCaller::questionEntry && enterQA_) opener = enterQA_.get();
  } else {
    if (classEdit_) {
      start.episode = classEdit_->Editor().CurrentEpisode();
      classEdit_->Editor().LeaveBox();
    }
    qa_ = std::make_unique<frmQA>(services_, start, nullptr, nullptr);
    if (classEdit_) qa_->Editor().KeepStepsWith(classEdit_->Editor().Steps());
  }
  // It takes the opener's place, also on the screen.
  if (opener) PlaceOver(*qa_, *opener);
  Present(*qa_);
}

void Forms::ShowTakenUpClass(const RunningClass& running) {
  Unload(classAct_);
  classAct_ = std::make_unique<frmClassAct>(services_, &running);
  classAct_->Live().ShowForms();
  if (!classAct_->Live().AreNotesOpen()) return;
  OnceInUse(*classAct_, [this] { classAct_->Live().cmdFieldNote_Click(); });
}

void Forms::ShowSurvey(SurveyCaller caller) {
  if (!matrices_) {
    matrices_ = std::make_unique<frmMatrices>(services_, LiveForm().Live(), caller);
    PlaceOver(*matrices_, LiveForm());
  }
  matrices_->SetCaller(caller);
  Present(*matrices_);
}

void Forms::ShowListOfFiles(const std::filesystem::path& list, ExportKind kind) {
  Unload(listOfFiles_);
  listOfFiles_ = std::make_unique<frmListOfFiles>(services_, kind, list);
  QObject::connect(listOfFiles_.get(), &frmListOfFiles::Finished, &ending_,
                   [this] { Close(Screen::listOfFiles); });
  // It takes the menu's place, also on the screen.
  if (splash_) PlaceOver(*listOfFiles_, *splash_);
  Present(*listOfFiles_);
}

bool Forms::ShowSurveyFile(const std::filesystem::path& file, Kept kept) {
  std::optional<LoadedSurvey> survey = LoadSurvey(services_, file, kept);
  if (!survey) return false;
  Unload(matrices_);
  matrices_ = std::make_unique<frmMatrices>(services_, std::move(*survey));
  Present(*matrices_);
  return true;
}

bool Forms::ShowEpisodeEditor(const std::filesystem::path& file, Kept kept) {
  LoadOutcome outcome = LoadEpisodes(services_, file, kept);
  if (!outcome.loaded) return false;
  Unload(classEdit_);
  classEdit_ = std::make_unique<frmClassEdit>(services_, std::move(*outcome.loaded));
  Present(*classEdit_);
  return true;
}

void Forms::ShowFieldNotes(const std::filesystem::path& file, Kept kept) {
  EditFieldNotes(services_, file, kept);
}

void Forms::KeepAll() {
  if (classAct_) classAct_->Live().Keep();
  services_.recovery.AwaitStored();
  if (classEdit_) classEdit_->Editor().AwaitKept();
  if (matrices_) matrices_->Form().AwaitKept();
}

void Forms::EndProgram() {
  isEnding_ = true;
  // Leaving the event loops, also those of boxes that are open, lets every operation return. The
  // forms and the log then go in the order in which whoever made them lets go of them.
  QMetaObject::invokeMethod(
      &ending_, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
}

}  // namespace orvex
