#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desk/screens.h"
#include "running/running_class.h"

namespace orvex::test {

/// Records how the logic switches between forms: "show questionEntry", "hide liveObservation".
class RecordingScreens : public Screens {
 public:
  void Show(Screen screen) override { moves.push_back("show " + Name(screen)); }
  void Hide(Screen screen) override { moves.push_back("hide " + Name(screen)); }
  void Close(Screen screen) override { moves.push_back("close " + Name(screen)); }
  void EndProgram() override { moves.emplace_back("end"); }
  bool IsOpen(Screen screen) const override { return screen == Screen::study && studyIsOpen; }
  bool LeadsBack() const override { return studyIsOpen; }
  void EndActivity() override { moves.emplace_back(studyIsOpen ? "back to the study" : "end"); }
  void ShowQuestionEditor(EditorCaller caller, bool proofMode) override {
    moves.push_back("show questionEditor for " + std::to_string(static_cast<int>(caller)) +
                    (proofMode ? " to proof" : ""));
  }
  void ShowTakenUpClass(const RunningClass& running) override {
    moves.emplace_back("take up the class");
    takenUp = running;
  }
  void ShowSurvey(SurveyCaller caller) override {
    moves.push_back("show survey for " + std::to_string(static_cast<int>(caller)));
  }
  void ShowListOfFiles(const std::filesystem::path& list, ExportKind kind) override {
    moves.push_back("show list " + list.filename().string() +
                    (kind == ExportKind::surData ? " of surveys" : ""));
  }
  bool ShowSurveyFile(const std::filesystem::path& file, Kept /*kept*/) override {
    moves.push_back("show survey file " + file.filename().string());
    return surveyFileIsGood;
  }
  bool ShowEpisodeEditor(const std::filesystem::path& file, Kept /*kept*/) override {
    moves.push_back("show episode editor for " + file.filename().string());
    return episodeFileIsGood;
  }
  bool ShowQuestion(const std::filesystem::path& file, int episode, int question,
                    const std::string& text) override {
    moves.push_back("show question " + std::to_string(episode) + "." + std::to_string(question) +
                    ", " + text + ", of " + file.filename().string());
    return episodeFileIsGood;
  }
  void ShowEditedQuestion(int episode, int question, const std::string& text) override {
    moves.push_back("show question " + std::to_string(episode) + "." + std::to_string(question) +
                    ", " + text);
  }
  bool ShowQuestions(const std::filesystem::path& file, int episode) override {
    moves.push_back("show the questions of episode " + std::to_string(episode) + " of " +
                    file.filename().string());
    return episodeFileIsGood;
  }
  bool ShowFirstGap(const std::filesystem::path& file) override {
    moves.push_back("show the first gap of " + file.filename().string());
    return episodeFileIsGood;
  }
  bool ShowReport(const std::filesystem::path& file, Screen report) override {
    moves.push_back("show " + Name(report) + " of " + file.filename().string());
    return episodeFileIsGood;
  }
  bool ShowStatistics(const std::vector<std::filesystem::path>& files) override {
    moves.push_back("show statistics of " + std::to_string(files.size()));
    return episodeFileIsGood;
  }
  bool ShowAgreement(const std::filesystem::path& first, const std::filesystem::path& second,
                     std::optional<int> tolerance) override {
    moves.push_back("show agreement of " + first.filename().string() + " and " +
                    second.filename().string() +
                    (tolerance ? " within " + std::to_string(*tolerance) : ""));
    return episodeFileIsGood;
  }
  void ShowAgreements(const std::vector<std::filesystem::path>& files) override {
    std::string names;
    for (const std::filesystem::path& file : files) names += " " + file.filename().string();
    moves.push_back("show agreements of" + names);
  }
  void ShowTables(const StudySelection& selection) override {
    moves.push_back("show tables of " + std::to_string(selection.selected.size()) + " or " +
                    std::to_string(selection.shown.size()));
  }
  bool ShowStudyPicture(const std::vector<std::filesystem::path>& files) override {
    moves.push_back("show study picture of " + std::to_string(files.size()));
    return episodeFileIsGood;
  }
  void ShowLog(const std::filesystem::path& file) override {
    moves.push_back("show log " + file.filename().string());
  }
  void ShowFieldNotes(const std::filesystem::path& file, Kept /*kept*/) override {
    moves.push_back("show field notes " + file.filename().string());
  }

  void ShowManual() override { moves.push_back("show manual"); }
  void ShowAbout() override { moves.push_back("show about"); }

  /// The moves since the last call.
  std::vector<std::string> Take() { return std::exchange(moves, {}); }

  std::vector<std::string> moves;
  std::optional<RunningClass> takenUp;
  bool studyIsOpen = false;
  bool surveyFileIsGood = true;
  bool episodeFileIsGood = true;

 private:
  static std::string Name(Screen screen) {
    constexpr const char* kNames[] = {
        "mainMenu",     "study",           "studyPicture",  "agreementStudy", "agreement",
        "setUp",        "liveObservation", "aboutText",     "questionEntry",  "episodeEditor",
        "classPicture", "timeSummary",     "questionStats", "questionPlot",   "questionEditor",
        "survey",       "listOfFiles"};
    return kNames[static_cast<std::size_t>(screen)];
  }
};

}  // namespace orvex::test
