#pragma once

#include <QObject>
#include <filesystem>
#include <memory>

#include "desk/screens.h"
#include "desk/services.h"

namespace orvex {

struct Episode;

class frmAboutInputBox;
class frmClassAct;
class frmClassEdit;
class frmEnterQA;
class frmInput1;
class frmListOfFiles;
class frmMatrices;
class frmQA;
class frmQuestionPlot;
class frmQuestionStats;
class frmSplash;
class frmTimeSummary;

/// The forms of the program, each built when it is first shown. When the user closes the last one,
/// the program ends.
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
  void ShowQuestionEditor(EditorCaller caller, bool proofMode) override;
  void ShowTakenUpClass(const RunningClass& running) override;
  void ShowSurvey(SurveyCaller caller) override;
  void ShowListOfFiles(const std::filesystem::path& list, ExportKind kind) override;
  bool ShowSurveyFile(const std::filesystem::path& file, Kept kept) override;
  bool ShowEpisodeEditor(const std::filesystem::path& file, Kept kept) override;
  void ShowFieldNotes(const std::filesystem::path& file, Kept kept) override;

  /// Has what is not stored or saved kept as it is, and waits until the system has it.
  void KeepAll();
  /// The program ends, or is to end before its event loop has begun.
  bool IsEnding() const { return isEnding_; }

 private:
  QWidget* Loaded(Screen screen) const;
  frmClassAct& LiveForm();
  void ShowAboutText();
  const Episode* EditedEpisode() const;
  void ShowTimeSummary();
  void ShowQuestionStats();
  void ShowQuestionPlot();

  std::filesystem::path programFolder_;
  Services services_;
  bool isEnding_ = false;
  QObject ending_;  // what is asked of it is done after the running operation

  // A form comes after the forms it works with.
  std::unique_ptr<frmSplash> splash_;
  std::unique_ptr<frmInput1> input1_;
  std::unique_ptr<frmClassAct> classAct_;
  std::unique_ptr<frmAboutInputBox> aboutInputBox_;
  std::unique_ptr<frmEnterQA> enterQA_;
  std::unique_ptr<frmClassEdit> classEdit_;
  std::unique_ptr<frmTimeSummary> timeSummary_;
  std::unique_ptr<frmQuestionStats> questionStats_;
  std::unique_ptr<frmQuestionPlot> questionPlot_;
  std::unique_ptr<frmQA> qa_;
  std::unique_ptr<frmMatrices> matrices_;
  std::unique_ptr<frmListOfFiles> listOfFiles_;
};

}  // namespace orvex
