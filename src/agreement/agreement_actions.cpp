#include "agreement/agreement_actions.h"

#include <string>

#include "agreement/pair_table.h"
#include "desk/prompter.h"
#include "desk/save_file.h"
#include "desk/screens.h"
#include "recovery/unfinished_file.h"
#include "store/durable_file.h"
#include "study/problem.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPairsFilter = "Tables of pairs (*.csv)|*.csv";

/// Where the pairs of two observations are saved unless the user chooses another place.
fs::path PairTablePath(const fs::path& first, const fs::path& second) {
  return first.parent_path() /
         (first.stem().string() + " " + second.stem().string() + " pairs.csv");
}

/// Reads two observations. Nothing when one cannot be read; the user has been told.
std::optional<std::pair<ObservedClass, ObservedClass>> ReadBoth(const Services& services,
                                                                const fs::path& first,
                                                                const fs::path& second) {
  std::pair<ObservedClass, ObservedClass> classes;
  for (const bool isFirst : {true, false}) {
    const fs::path& file = isFirst ? first : second;
    ObservedClass& read = isFirst ? classes.first : classes.second;
    const auto problem = ProblemOf(file, [&] { read = ReadObservedClass(file); });
    if (!problem) continue;
    services.prompter.Tell(Say(Text::fileUnreadable), problem->Sentence());
    return std::nullopt;
  }
  return classes;
}

}  // namespace

std::optional<LoadedComparison> LoadComparison(const Services& services, const fs::path& first,
                                               const fs::path& second) {
  auto classes = ReadBoth(services, first, second);
  if (!classes) return std::nullopt;
  const fs::path table = PairTablePath(first, second);
  const TakenUp takenUp = TakeUpChanges(services, table, Kept::areOffered);
  if (takenUp.isLeft) return std::nullopt;
  LoadedComparison loaded(
      std::make_unique<Comparison>(std::move(classes->first), std::move(classes->second)));
  std::string saved;  // nothing when the pairs were never saved
  ProblemOf(table, [&] { saved = ReadFile(table); });
  loaded.keeper = std::make_unique<FileKeeper>(services, table, saved, takenUp.changes);
  if (!takenUp.changes) return loaded;
  const auto problem =
      ProblemOf(table, [&] { loaded.comparison->TakePairs(*takenUp.changes->bytes); });
  if (problem) services.prompter.Tell(Say(Text::pairsNotRead), problem->Sentence());
  return loaded;
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
  auto classes = ReadBoth(services_, comparison_.First().file, comparison_.Second().file);
  if (!classes) return;
  const std::size_t gone =
      comparison_.Reload(std::move(classes->first), std::move(classes->second));
  if (gone > 0) services_.prompter.Tell(Say(Text::pairsGone, {std::to_string(gone)}));
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
  const fs::path table = PairTablePath(comparison_.First().file, comparison_.Second().file);
  const fs::path path = services_.prompter
                            .AskSaveFile({.folder = table.parent_path(),
                                          .filter = kPairsFilter,
                                          .defaultName = table.filename().string()})
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

void AgreementActions::Keep() {
  if (!keeper_) return;
  const QuestionPairs* unsaved = comparison_.UnsavedPairs();
  if (unsaved ? kept_ == *unsaved : !kept_) return keeper_->Retry();
  kept_ = unsaved ? std::optional(*unsaved) : std::nullopt;
  keeper_->Keep(kept_ ? std::optional(PairTableText(*kept_)) : std::nullopt);
}

void AgreementActions::AwaitKept() {
  Keep();
  if (keeper_) keeper_->AwaitStored();
}

void AgreementActions::Leave() {
  if (comparison_.UnsavedPairs()) {
    const Answer save = services_.prompter.Ask({.text = Say(Text::askSavePairs),
                                                .buttons = Buttons::yesNoCancel,
                                                .defaultAnswer = Answer::yes});
    if (save == Answer::cancel || (save == Answer::yes && !SavePairs())) return;
  }
  if (keeper_) keeper_->Drop();
  services_.program = before_;
  Screens& screens = services_.screens;
  const bool isOfStudy = screens.IsOpen(Screen::agreementStudy);
  screens.Show(isOfStudy                       ? Screen::agreementStudy
               : screens.IsOpen(Screen::study) ? Screen::study
                                               : Screen::mainMenu);
  screens.Close(Screen::agreement);
}

}  // namespace orvex
