#include "agreement/agreement_actions.h"

#include <array>
#include <string>

#include "desk/prompter.h"
#include "desk/save_file.h"
#include "desk/screens.h"
#include "study/problem.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPairsFilter = "Tables of pairs (*.csv)|*.csv";

}  // namespace

std::unique_ptr<Comparison> LoadComparison(const Services& services, const fs::path& first,
                                           const fs::path& second) {
  std::array<ObservedClass, 2> classes;
  for (std::size_t i = 0; i < classes.size(); ++i) {
    const fs::path& file = i == 0 ? first : second;
    const auto problem = ProblemOf(file, [&] { classes[i] = ReadObservedClass(file); });
    if (!problem) continue;
    services.prompter.Tell(Say(Text::fileUnreadable), problem->Sentence());
    return nullptr;
  }
  return std::make_unique<Comparison>(std::move(classes[0]), std::move(classes[1]));
}

const AskedQuestion* AgreementActions::Asked(std::size_t row, Side side) const {
  const PairRow& pair = comparison_.Rows().at(row);
  return side == Side::first ? pair.first : pair.second;
}

void AgreementActions::Open(std::size_t row, Side side) {
  const AskedQuestion* asked = Asked(row, side);
  if (!asked) return;
  const fs::path& file = (side == Side::first ? comparison_.First() : comparison_.Second()).file;
  services_.program = before_;
  // A survey that is opened from the file's forms is saved there.
  services_.program.DataPath = file.parent_path();
  if (!services_.screens.ShowQuestion(file, asked->episode, asked->number,
                                      asked->question->question)) {
    return;
  }
  hasOpened_ = true;
  services_.screens.Hide(Screen::agreement);
}

void AgreementActions::ComeBack() {
  if (!hasOpened_) return;
  hasOpened_ = false;
  const auto problem = ProblemOf(comparison_.First().file, [this] { comparison_.Reload(); });
  if (problem) services_.prompter.Tell(Say(Text::fileUnreadable), problem->Sentence());
}

/// The two rows that are to be paired when the user has selected these.
std::optional<std::pair<std::size_t, std::size_t>> AgreementActions::RowsOf(
    std::span<const std::size_t> selected) const {
  if (selected.empty() || selected.size() > 2) return std::nullopt;
  const auto other =
      selected.size() == 2 ? std::optional(selected[1]) : comparison_.NearestPartner(selected[0]);
  if (!other || !comparison_.CanPair(selected[0], *other)) return std::nullopt;
  return {{selected[0], *other}};
}

std::optional<std::size_t> AgreementActions::Pair(std::span<const std::size_t> selected) {
  const auto rows = RowsOf(selected);
  if (!rows) return std::nullopt;
  return comparison_.Pair(rows->first, rows->second);
}

bool AgreementActions::SavePairs() {
  const fs::path& file = comparison_.First().file;
  const std::string name =
      file.stem().string() + " " + comparison_.Second().file.stem().string() + " pairs.csv";
  const fs::path path =
      services_.prompter
          .AskSaveFile({.folder = file.parent_path(), .filter = kPairsFilter, .defaultName = name})
          .path;
  if (path.empty()) return false;
  const FileToSave saved = {
      .failure = Say(Text::pairsNotSaved), .path = path, .filter = kPairsFilter};
  return !SaveFile(services_.prompter, saved, [this](const fs::path& place) {
            comparison_.SavePairs(place, services_.storage);
          }).empty();
}

bool AgreementActions::LoadPairs() {
  const fs::path file =
      services_.prompter
          .AskFile({.folder = comparison_.First().file.parent_path(), .filter = kPairsFilter})
          .path;
  if (file.empty()) return false;
  const auto problem = ProblemOf(file, [&] { comparison_.LoadPairs(file); });
  if (problem) services_.prompter.Tell(Say(Text::pairsNotRead), problem->Sentence());
  return !problem;
}

void AgreementActions::Leave() {
  if (comparison_.HasUnsavedPairs()) {
    const Answer save = services_.prompter.Ask({.text = Say(Text::askSavePairs),
                                                .buttons = Buttons::yesNoCancel,
                                                .defaultAnswer = Answer::yes});
    if (save == Answer::cancel || (save == Answer::yes && !SavePairs())) return;
  }
  services_.program = before_;
  Screens& screens = services_.screens;
  const bool isOfStudy = screens.IsOpen(Screen::agreementStudy);
  screens.Show(isOfStudy                       ? Screen::agreementStudy
               : screens.IsOpen(Screen::study) ? Screen::study
                                               : Screen::mainMenu);
  screens.Close(Screen::agreement);
}

}  // namespace orvex
