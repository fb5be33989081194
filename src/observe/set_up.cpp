#include "observe/set_up.h"

#include <filesystem>

#include "desk/data_folder.h"
#include "desk/prompter.h"
#include "desk/screens.h"
#include "model/program.h"
#include "model/texts.h"
#include "recovery/kept_content.h"
#include "recovery/recovery_file.h"
#include "recovery/remembered_folders.h"
#include "recovery/unfinished_class.h"
#include "running/store_class.h"
#include "store/file_error.h"
#include "store/numbers.h"
#include "store/older_file.h"
#include "store/paths.h"
#include "store/session_log.h"

namespace orvex {
namespace {

SetUp::Control ControlOf(HeaderBox box) {
  switch (box) {
    case HeaderBox::initials:
      return SetUp::Control::initials;
    case HeaderBox::schoolNum:
      return SetUp::Control::schoolNum;
    case HeaderBox::classNum:
      return SetUp::Control::classNum;
    case HeaderBox::observNum:
      return SetUp::Control::observNum;
    case HeaderBox::numStudents:
      break;
  }
  return SetUp::Control::numStudents;
}

}  // namespace

SetUp::SetUp(const Services& services) : services_(services), identity_(services.program.identity) {
  identity_ = {};
  dataFolder_ = DataFolderText(services_);
}

const std::string& SetUp::Text(HeaderBox box) const {
  return HeaderText(identity_, box);
}

void SetUp::Type(HeaderBox box, const std::string& text) {
  TypeHeaderText(identity_, box, text);
}

bool SetUp::CanStart() const {
  return IsNamed(identity_) && StudentCount(identity_.NumStudents);
}

void SetUp::MoveTo(HeaderBox box, Caret caret) {
  focus_.Set(ControlOf(box), caret);
}

void SetUp::EnterOrDown(HeaderBox box) {
  if (box != HeaderBox::numStudents) {
    MoveTo(NextBox(kHeaderBoxes, box), box == HeaderBox::classNum ? Caret::stay : Caret::atEnd);
    return;
  }
  NormaliseNumbers(identity_);
  CheckForEpisodeFile();
  if (CanStart()) {
    focus_.Set(Control::start, Caret::stay);
  } else {
    MoveTo(HeaderBox::initials);
  }
}

void SetUp::Up(HeaderBox box) {
  MoveTo(PreviousBox(kHeaderBoxes, box));
}

void SetUp::DownOnReset() {
  MoveTo(HeaderBox::initials);
}

bool SetUp::Leave(HeaderBox box) {
  if (HoldsValidText(identity_, box)) return true;
  HeaderText(identity_, box).clear();
  MoveTo(box);
  return false;
}

void SetUp::Reset() {
  for (const HeaderBox box : kHeaderBoxes) {
    if (box != HeaderBox::initials) HeaderText(identity_, box).clear();
  }
  MoveTo(HeaderBox::initials);
}

void SetUp::CheckForEpisodeFile() {
  std::error_code unreadable;
  const bool exists =
      std::filesystem::exists(EpsPath(services_.program.DataPath, identity_), unreadable);
  warning_ = exists ? Say(Text::episodeFileExists, {identity_.ClassId()}) : "";
}

/// Offers an unfinished class with these numbers, if there is one, because a new class would
/// replace its log. True if there was one; then no new class starts.
bool SetUp::OfferUnfinishedClass() {
  const auto path = RecoveryPath(services_.program.DataPath, identity_);
  if (!IsUnfinishedAt(path)) return false;
  if (OfferUnfinished(services_.prompter, UnfinishedClassAt(services_, path))) {
    services_.screens.Hide(Screen::setUp);
  }
  CheckForEpisodeFile();
  return true;
}

void SetUp::Start() {
  if (!CanStart()) return;
  NormaliseNumbers(identity_);
  const bool settled = SettleDataFolder(services_, false);
  dataFolder_ = DataFolderText(services_);
  if (!settled || OfferUnfinishedClass()) return;
  const std::filesystem::path logPath = BakPath(services_.program.DataPath, identity_);
  std::string older;
  try {
    MakeBakFolders(services_.storage, services_.program.DataPath, identity_);
    services_.recovery.Begin(RecoveryPath(services_.program.DataPath, identity_));
    older = KeepOlder(services_.storage, logPath);
    services_.log.File().Open(logPath);
  } catch (const FileError& error) {
    services_.recovery.Leave();
    services_.prompter.Tell(Say(Text::logNotOpened), error.what());
    return;
  }
  TellOfOlder(services_.prompter, {older});
  writer_.Do([services = services_, folder = services_.program.DataPath] {
    RememberFolder(services.storage, services.programFolder, folder);
  });
  services_.log.LogOn(logPath.filename().string(), identity_.Initials, identity_.NumStudents);
  services_.screens.Show(Screen::liveObservation);
  services_.screens.Hide(Screen::setUp);
}

}  // namespace orvex
