#include "ui/Forms.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QWindow>
#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

#include "agreement/agreement_actions.h"
#include "desk/prompter.h"
#include "editor/edited_file.h"
#include "editor/load_episodes.h"
#include "model/program.h"
#include "recovery/recovery_file.h"
#include "start/field_notes_file.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/text_encoding.h"
#include "study/logged_class.h"
#include "study/study_picture.h"
#include "survey/load_survey.h"
#include "ui/FormRow.h"
#include "ui/OnceInUse.h"
#include "ui/forms/dlgLog.h"
#include "ui/forms/dlgTables.h"
#include "ui/forms/frmAgreement.h"
#include "ui/forms/frmAgreementStudy.h"
#include "ui/forms/frmClassAct.h"
#include "ui/forms/frmClassEdit.h"
#include "ui/forms/frmListOfFiles.h"
#include "ui/forms/frmMatrices.h"
#include "ui/forms/frmQA.h"
#include "ui/forms/frmQuestionStats.h"
#include "ui/forms/frmStudyPicture.h"
#include "ui/manual/ManualFolder.h"
#include "ui/widgets/FitToScreen.h"

namespace orvex {
namespace {

/// The forms from which files are opened. What is opened leads back to the first that is open.
constexpr std::array kOpeners = {Screen::agreement, Screen::agreementStudy, Screen::study};

}  // namespace

Forms::Forms(Program& program, SessionLog& log, RecoveryFile& recovery, Storage& storage,
             const Clock& clock, Prompter& prompter, std::filesystem::path programFolder)
    : programFolder_(std::move(programFolder)),
      services_{program, log, recovery, storage, clock, prompter, *this, programFolder_},
      help_(services_,
            ManualFolder(QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString())) {
  QApplication::setQuitOnLastWindowClosed(false);
  QObject::connect(qApp, &QApplication::lastWindowClosed, &ending_, [this] { EndProgram(); });
  // Keep every change before the program waits for the next event.
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                   &ending_, [this] {
                     if (auto* live = Get<frmClassAct>()) live->Live().Keep();
                     if (auto* edit = Get<frmClassEdit>()) edit->Editor().Keep();
                     if (auto* pairs = Get<frmAgreement>()) pairs->Actions().Keep();
                   });
}

Forms::~Forms() {
  // Destroy a form before the forms it works with.
  while (!loaded_.empty()) loaded_.erase(std::prev(loaded_.end()));
}

frmClassAct& Forms::LiveForm() {
  Load(Screen::liveObservation);
  return *Get<frmClassAct>();
}

std::optional<ReportSubject> Forms::Subject() const {
  auto* edit = Get<frmClassEdit>();
  return edit ? SubjectOf(edit->Editor(), services_.program.Episodes) : reported_;
}

void Forms::Load(Screen screen, LoadedForm form) {
  Close(screen);
  if (!form.widget) return;
  for (const Screen over : RowOf(screen).over) {
    const auto there = loaded_.find(over);
    if (there == loaded_.end()) continue;
    PlaceOver(*form.widget, *there->second.widget);
    break;
  }
  loaded_.emplace(screen, std::move(form));
}

void Forms::Load(Screen screen) {
  const Row& row = RowOf(screen);
  if (row.make && !loaded_.contains(screen)) Load(screen, row.make(*this));
}

void Forms::BringToFront(Screen screen) {
  const auto found = loaded_.find(screen);
  if (found == loaded_.end()) return;
  QWidget& form = *found->second.widget;
  // A copy, because the refresh may close the form.
  const std::function<void()> refresh = found->second.refresh;
  if (auto* dialog = qobject_cast<QDialog*>(&form)) {
    refresh();
    dialog->exec();
    return;
  }
  form.setWindowState(form.windowState() & ~Qt::WindowMinimized);
  if (!form.isVisible()) FitToScreen(form);
  // A form that comes back appears where it was; the window manager places it only the first time.
  // The position is without the frame, which a hidden window does not have.
  if (form.windowHandle() && !form.isVisible()) {
    form.windowHandle()->setPosition(form.geometry().topLeft());
  }
  form.show();
  form.raise();
  form.activateWindow();
  // Refresh last: the form cannot take the focus before it is shown.
  refresh();
}

void Forms::Show(Screen screen) {
  Load(screen);
  BringToFront(screen);
}

void Forms::Hide(Screen screen) {
  const auto found = loaded_.find(screen);
  if (found != loaded_.end()) found->second.widget->hide();
}

void Forms::Close(Screen screen) {
  const auto found = loaded_.find(screen);
  if (found == loaded_.end()) return;
  for (const Screen along : RowOf(screen).closes) Close(along);
  found->second.widget->hide();
  // The form may be closing itself: its code still runs after this returns.
  loaded_.extract(found).mapped().widget.release()->deleteLater();
}

void Forms::ShowQuestionEditor(EditorCaller caller, bool proofMode) {
  QuestionEditorStart start = {.caller = caller, .proofMode = proofMode};
  if (caller == EditorCaller::liveObservation || caller == EditorCaller::questionEntry) {
    frmClassAct& live = LiveForm();
    Load(Screen::questionEditor,
         std::make_unique<frmQA>(services_, start, &live.Live(), &live.Clocks()));
  } else {
    auto* edit = Get<frmClassEdit>();
    if (edit) {
      // The statistics may have gone on to another episode.
      const auto* stats = Get<frmQuestionStats>();
      if (caller == EditorCaller::statistics && stats) edit->Editor().ShowEpisode(stats->Episode());
      start.episode = edit->Editor().CurrentEpisode();
      edit->Editor().LeaveBox();
    }
    auto form = std::make_unique<frmQA>(services_, start, nullptr, nullptr);
    if (edit) form->Editor().KeepStepsWith(edit->Editor().Steps());
    Load(Screen::questionEditor, std::move(form));
  }
  BringToFront(Screen::questionEditor);
}

void Forms::ShowTakenUpClass(const RunningClass& running) {
  Load(Screen::liveObservation, std::make_unique<frmClassAct>(services_, &running));
  frmClassAct& live = LiveForm();
  live.Live().ShowForms();
  if (!live.Live().Running().draftNotes) return;
  OnceInUse(live, [&live] { live.Live().EditFieldNotes(); });
}

void Forms::ShowSurvey(SurveyCaller caller) {
  if (!loaded_.contains(Screen::survey)) {
    Load(Screen::survey, std::make_unique<frmMatrices>(services_, LiveForm().Live(), caller));
  }
  if (auto* survey = Get<frmMatrices>()) survey->SetCaller(caller);
  BringToFront(Screen::survey);
}

void Forms::ShowListOfFiles(const std::filesystem::path& list, ExportKind kind) {
  auto form = std::make_unique<frmListOfFiles>(services_, kind, list);
  QObject::connect(form.get(), &frmListOfFiles::Finished, &ending_,
                   [this] { Close(Screen::listOfFiles); });
  Load(Screen::listOfFiles, std::move(form));
  BringToFront(Screen::listOfFiles);
}

bool Forms::ShowSurveyFile(const std::filesystem::path& file, Kept kept) {
  std::optional<LoadedSurvey> survey = LoadSurvey(services_, file, kept);
  if (!survey) return false;
  Load(Screen::survey, std::make_unique<frmMatrices>(services_, std::move(*survey)));
  BringToFront(Screen::survey);
  return true;
}

EpisodeEditor* Forms::LoadEpisodeEditor(const std::filesystem::path& file, Kept kept) {
  LoadOutcome outcome = LoadEpisodes(services_, file, kept);
  if (!outcome.loaded) return nullptr;
  auto form = std::make_unique<frmClassEdit>(services_, std::move(*outcome.loaded));
  EpisodeEditor& editor = form->Editor();
  Load(Screen::episodeEditor, std::move(form));
  return &editor;
}

void Forms::ShowUnlessLeft(const EpisodeEditor& editor) {
  if (!editor.HasBeenLeft()) BringToFront(Screen::episodeEditor);
}

bool Forms::ShowEpisodeEditor(const std::filesystem::path& file, Kept kept) {
  if (!LoadEpisodeEditor(file, kept)) return false;
  BringToFront(Screen::episodeEditor);
  return true;
}

bool Forms::ShowQuestions(const std::filesystem::path& file, int episode) {
  EpisodeEditor* editor = LoadEpisodeEditor(file, Kept::areOffered);
  if (!editor) return false;
  editor->ShowEpisode(episode);
  editor->EditQuestions();
  ShowUnlessLeft(*editor);
  return true;
}

bool Forms::ShowQuestion(const std::filesystem::path& file, int episode, int question,
                         const std::string& text) {
  if (!LoadEpisodeEditor(file, Kept::areOffered)) return false;
  ShowEditedQuestion(episode, question, text);
  return true;
}

void Forms::ShowEditedQuestion(int episode, int question, const std::string& text) {
  auto* edit = Get<frmClassEdit>();
  if (!edit) return;
  EpisodeEditor& editor = edit->Editor();
  editor.ShowEpisode(episode);
  if (!editor.HasQuestion(episode, question, text)) {
    ShowUnlessLeft(editor);
    services_.prompter.Tell(Say(Text::questionGone));
    return;
  }
  editor.EditQuestions();
  if (auto* questions = Get<frmQA>()) {
    questions->Editor().ChooseQuestion(question);
    questions->Refresh();
  }
}

bool Forms::ShowFirstGap(const std::filesystem::path& file) {
  EpisodeEditor* editor = LoadEpisodeEditor(file, Kept::areOffered);
  if (!editor) return false;
  editor->Proof();
  ShowUnlessLeft(*editor);
  return true;
}

bool Forms::ShowReport(const std::filesystem::path& file, Screen report) {
  auto read = ReadForReports(services_, file);
  if (!read) return false;
  reported_ = SubjectOf(file, *std::move(read));
  constexpr std::array kBegins = {Screen::liveObservation, Screen::study};
  const auto* const begun = std::ranges::find_if(kBegins, [this](Screen s) { return IsOpen(s); });
  reported_->back = begun == kBegins.end() ? Screen::mainMenu : *begun;
  Show(report);
  return loaded_.contains(report);
}

bool Forms::ShowStatistics(const std::vector<std::filesystem::path>& files) {
  std::vector<EpsObservation> classes;
  for (const std::filesystem::path& file : files) {
    if (auto read = ReadForReports(services_, file)) classes.push_back(*std::move(read));
  }
  if (classes.empty()) return false;
  Load(Screen::questionStats, MakeQuestionStatsForm(services_, classes));
  BringToFront(Screen::questionStats);
  return true;
}

bool Forms::ShowAgreement(const std::filesystem::path& first, const std::filesystem::path& second,
                          std::optional<int> tolerance) {
  auto comparison = LoadComparison(services_, first, second);
  if (!comparison) return false;
  if (tolerance) comparison->comparison->SetTolerance(*tolerance);
  Load(Screen::agreement, std::make_unique<frmAgreement>(services_, *std::move(comparison)));
  BringToFront(Screen::agreement);
  return true;
}

void Forms::ShowAgreements(const std::vector<std::filesystem::path>& files) {
  Load(Screen::agreementStudy, std::make_unique<frmAgreementStudy>(services_, files));
  BringToFront(Screen::agreementStudy);
}

bool Forms::ShowStudyPicture(const std::vector<std::filesystem::path>& files) {
  std::vector<PictureRow> rows;
  for (const std::filesystem::path& file : files) {
    auto read = ReadForReports(services_, file);
    if (read) rows.push_back(MakePictureRow(LoggedClassOf(*std::move(read), file, {})));
  }
  if (rows.empty()) return false;
  Load(Screen::studyPicture, MakeStudyPictureForm(services_, std::move(rows)));
  BringToFront(Screen::studyPicture);
  return true;
}

void Forms::ShowLog(const std::filesystem::path& file) {
  try {
    dlgLog(file.filename().string(), Decode(ReadFile(file)).text, QApplication::activeWindow())
        .exec();
  } catch (const FileError& error) {
    services_.prompter.Tell(Say(Text::fileUnreadable), error.what());
  }
}

void Forms::ShowTables(const StudySelection& selection) {
  dlgTables(services_, selection, tablesChoice_, QApplication::activeWindow()).exec();
}

void Forms::ShowFieldNotes(const std::filesystem::path& file, Kept kept) {
  EditFieldNotes(services_, file, kept);
}

bool Forms::IsOpen(Screen screen) const {
  return loaded_.contains(screen);
}

bool Forms::LeadsBack() const {
  return std::ranges::any_of(kOpeners, [this](Screen screen) { return IsOpen(screen); });
}

void Forms::EndActivity() {
  const auto* opener =
      std::ranges::find_if(kOpeners, [this](Screen screen) { return IsOpen(screen); });
  if (opener == kOpeners.end()) return EndProgram();
  Show(*opener);
  std::vector<Screen> others;
  for (const auto& [screen, form] : loaded_) {
    if (std::ranges::find(kOpeners, screen) == kOpeners.end()) others.push_back(screen);
  }
  for (const Screen screen : others) Close(screen);
}

void Forms::KeepAll() {
  if (auto* live = Get<frmClassAct>()) live->Live().Keep();
  services_.recovery.AwaitStored();
  if (auto* edit = Get<frmClassEdit>()) edit->Editor().AwaitKept();
  if (auto* survey = Get<frmMatrices>()) survey->Form().AwaitKept();
  if (auto* pairs = Get<frmAgreement>()) pairs->Actions().AwaitKept();
}

void Forms::EndProgram() {
  isEnding_ = true;
  // Exiting all event loops, including those of open dialogs, lets every running operation return.
  // After that their owners destroy the forms and the log, in the usual order.
  QMetaObject::invokeMethod(
      &ending_, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
}

}  // namespace orvex
