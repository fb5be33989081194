#pragma once

#include <QString>

#include "desk/prompter.h"

class QWidget;

namespace orvex {

/// Asks with modal boxes in front of the active form.
class QtPrompter : public Prompter {
 public:
  Answer Ask(const Message& message) override;
  std::optional<std::string> AskText(const TextPrompt& prompt) override;
  ChosenFile AskFile(const FilePrompt& prompt) override;
  std::filesystem::path AskFolder(const std::filesystem::path& start) override;
  ChosenFile AskSaveFile(const FilePrompt& prompt) override;
  bool AskOfftask(OfftaskPrompt& prompt) override;
  std::optional<int> AskSeconds(const SecondsPrompt& prompt) override;
  std::optional<std::string> AskNotes(const NotesPrompt& prompt) override;
  std::optional<int> AskDivision(int totalSeconds) override;
  std::optional<std::vector<int>> AskQuestions(const Episode& episode) override;
  std::optional<UnfinishedChoice> AskUnfinished(const std::vector<UnfinishedItem>& items) override;
};

/// A filter in Qt's notation: "EPS files (*.EPS)|*.EPS" becomes "EPS files (*.EPS *.eps)". There
/// may be several such pairs.
QString NameFilter(const QString& filter);

}  // namespace orvex
