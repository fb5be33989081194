#pragma once

#include <QObject>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "desk/screens.h"
#include "desk/services.h"
#include "tables/study_tables.h"
#include "ui/ReportForms.h"
#include "ui/manual/Help.h"

namespace orvex {

class frmClassAct;

/// The forms of the program. Each is built when first shown. The program ends when the user closes
/// the last one.
class Forms : public Screens {
 public:
  Forms(Program& program, SessionLog& log, RecoveryFile& recovery, Storage& storage,
        const Clock& clock, Prompter& prompter, std::filesystem::path programFolder);
  ~Forms() override;
  Forms(const Forms&) = delete;
  Forms& operator=(const Forms&) = delete;

  void Show(Screen screen) override;
  void Hide(Screen screen) override;
  void Close(Screen screen) override;
  void EndProgram() override;
  bool IsOpen(Screen screen) const override;
  bool LeadsBack() const override;
  void EndActivity() override;
  void ShowQuestionEditor(EditorCaller caller, bool proofMode) override;
  void ShowTakenUpClass(const RunningClass& running) override;
  void ShowSurvey(SurveyCaller caller) override;
  void ShowListOfFiles(const std::filesystem::path& list, ExportKind kind) override;
  bool ShowSurveyFile(const std::filesystem::path& file, Kept kept) override;
  bool ShowEpisodeEditor(const std::filesystem::path& file, Kept kept) override;
  bool ShowQuestion(const std::filesystem::path& file, int episode, int question,
                    const std::string& text) override;
  void ShowEditedQuestion(int episode, int question, const std::string& text) override;
  bool ShowQuestions(const std::filesystem::path& file, int episode) override;
  bool ShowFirstGap(const std::filesystem::path& file) override;
  bool ShowReport(const std::filesystem::path& file, Screen report) override;
  bool ShowStatistics(const std::vector<std::filesystem::path>& files) override;
  bool ShowAgreement(const std::filesystem::path& first, const std::filesystem::path& second,
                     std::optional<int> tolerance) override;
  void ShowAgreements(const std::vector<std::filesystem::path>& files) override;
  bool ShowStudyPicture(const std::vector<std::filesystem::path>& files) override;
  void ShowLog(const std::filesystem::path& file) override;
  void ShowTables(const StudySelection& selection) override;
  void ShowFieldNotes(const std::filesystem::path& file, Kept kept) override;
  void ShowManual() override { help_.ShowManual(nullptr); }
  void ShowAbout() override { help_.ShowAbout(); }

  /// Keeps all unsaved work and waits until the system has it.
  void KeepAll();
  /// True once the program is ending, even if its event loop has not started yet.
  bool IsEnding() const { return isEnding_; }

 private:
  /// How a form is built and placed, and what closes with it.
  struct Row;

  /// A form, and the function that refreshes what it shows.
  struct LoadedForm {
    LoadedForm() = default;
    template <typename Form>
    LoadedForm(std::unique_ptr<Form> made)
        : refresh([form = made.get()] { form->Refresh(); }), widget(std::move(made)) {}

    std::function<void()> refresh;
    std::unique_ptr<QWidget> widget;
  };

  static const Row& RowOf(Screen screen);
  /// The loaded form of class `Form`; null if there is none.
  template <typename Form>
  Form* Get() const;
  frmClassAct& LiveForm();
  /// What the reports are about; nothing when there is nothing to report.
  std::optional<ReportSubject> Subject() const;
  /// The editor of `file`, loaded and not yet shown; null when ShowEpisodeEditor would return
  /// false.
  EpisodeEditor* LoadEpisodeEditor(const std::filesystem::path& file, Kept kept);
  /// Shows the episode editor, unless it has given way to another form.
  void ShowUnlessLeft(const EpisodeEditor& editor);
  /// Replaces the form loaded for `screen` with `form`; without a widget, only closes the old one.
  void Load(Screen screen, LoadedForm form);
  /// Builds the form if it is not loaded and Forms can build it on its own.
  void Load(Screen screen);
  void BringToFront(Screen screen);

  std::filesystem::path programFolder_;
  Services services_;
  Help help_;
  bool isEnding_ = false;
  QObject ending_;                         // its destruction ends the connections made here
  TablesChoice tablesChoice_;              ///< what was chosen last for the tables of a study
  std::optional<ReportSubject> reported_;  ///< the file that ShowReport was given last
  std::map<Screen, LoadedForm> loaded_;
};

template <typename Form>
Form* Forms::Get() const {
  for (const auto& [screen, loaded] : loaded_) {
    if (auto* form = qobject_cast<Form*>(loaded.widget.get())) return form;
  }
  return nullptr;
}

}  // namespace orvex
