#include "observe/observation_header.h"

#include <filesystem>

#include "desk/prompter.h"
#include "model/texts.h"
#include "recovery/kept_content.h"
#include "recovery/recovery_file.h"
#include "store/file_error.h"
#include "store/older_file.h"
#include "store/paths.h"
#include "store/session_log.h"

namespace orvex {
namespace {

constexpr HeaderRound kRound = {HeaderBox::schoolNum, HeaderBox::classNum, HeaderBox::observNum,
                                HeaderBox::initials, HeaderBox::numStudents};

}  // namespace

ObservationHeader::ObservationHeader(const Services& services, TypedNumbers& typed)
    : services_(services),
      identity_(services.program.identity),
      typed_(typed),
      lastStudents_(identity_.NumStudents) {}

const std::string& ObservationHeader::Text(HeaderBox box) const {
  const auto number = NumberIndex(box);
  return number && typed_[*number] ? *typed_[*number] : HeaderText(identity_, box);
}

void ObservationHeader::Type(HeaderBox box, const std::string& text) {
  const auto number = NumberIndex(box);
  if (!number) return TypeHeaderText(identity_, box, text);
  Identity typed = identity_;
  TypeHeaderText(typed, box, text);
  typed_[*number].reset();
  if (HeaderText(typed, box) != HeaderText(identity_, box))
    typed_[*number] = HeaderText(typed, box);
}

std::string ObservationHeader::ClassIdText() const {
  return Say(Text::liveClassId, {AsTyped(identity_, typed_).ClassId()});
}

std::optional<HeaderBox> ObservationHeader::Disagreeing() const {
  for (const HeaderBox box : kNumberBoxes) {
    if (Text(box) != HeaderText(identity_, box)) return box;
  }
  return std::nullopt;
}

HeaderBox ObservationHeader::Next(HeaderBox box) {
  return NextBox(kRound, box);
}

HeaderBox ObservationHeader::Previous(HeaderBox box) {
  return PreviousBox(kRound, box);
}

void ObservationHeader::CorrectStudents(const std::string& text) {
  identity_.NumStudents = text;
  lastStudents_ = text;
  services_.log.LogRevisedN(text);
}

void ObservationHeader::Enter(HeaderBox box) {
  if (box != HeaderBox::numStudents) return;
  // The first visit corrects what was typed at set-up; only later ones are revisions.
  if (studentsVisited_) rememberedStudents_ = identity_.NumStudents;
  studentsVisited_ = true;
}

bool ObservationHeader::Leave(HeaderBox box) {
  if (!HoldsValidText(AsTyped(identity_, typed_), box)) {
    Type(box, "");
    return false;
  }
  if (box == HeaderBox::initials) return true;
  return box == HeaderBox::numStudents ? LeaveStudents() : LeaveNumber(box);
}

bool ObservationHeader::LeaveStudents() {
  std::string& text = identity_.NumStudents;
  if (text.empty()) {
    text = lastStudents_;
    return false;
  }
  lastStudents_ = text;
  if (rememberedStudents_ && *rememberedStudents_ != text) services_.log.LogRevisedN(text);
  return true;
}

bool ObservationHeader::LeaveNumber(HeaderBox box) {
  if (Text(box).empty()) {
    // A file name needs all its numbers, so restore the one in the name of the log.
    Type(box, HeaderText(identity_, box));
    return false;
  }
  // A box that agrees with the log can always be left, even if another one was declined.
  if (Text(box) == HeaderText(identity_, box)) return true;
  const Renaming renaming = RenameSessionLog();
  if (renaming == Renaming::declined && box != HeaderBox::observNum) Type(box, "");
  return renaming == Renaming::done;
}

/// Renames the log and the recovery file to the numbers in the boxes, and accepts these.
ObservationHeader::Renaming ObservationHeader::RenameSessionLog() {
  const Identity renamed = AsTyped(identity_, typed_);
  // While another number is still being corrected, there is no file name to change to.
  if (!IsNamed(renamed)) return Renaming::done;
  try {
    const std::filesystem::path log = BakPath(services_.program.DataPath, renamed);
    if (services_.log.File().Path().filename() != log.filename()) {
      if (!MayTake(log)) return Renaming::declined;
      RenameFiles(renamed);
    }
  } catch (const FileError& error) {
    services_.prompter.Tell(Say(Text::logNotRenamed), error.what());
    return Renaming::failed;
  }
  Accept(renamed);
  return Renaming::done;
}

/// Asks before the name of an existing log is taken. That log is not lost: it is kept beside.
bool ObservationHeader::MayTake(const std::filesystem::path& log) const {
  std::error_code unreadable;
  if (!std::filesystem::exists(log, unreadable)) return true;
  const std::string name = log.filename().string();
  return services_.prompter.Ask({.text = Say(Text::askOverwriteLog, {name}),
                                 .buttons = Buttons::okCancel,
                                 .details = Say(Text::logKeptAs, {OlderName(log)})}) == Answer::ok;
}

void ObservationHeader::RenameFiles(const Identity& renamed) {
  const std::filesystem::path& dataPath = services_.program.DataPath;
  const std::filesystem::path log = BakPath(dataPath, renamed);
  MakeBakFolders(services_.storage, dataPath, renamed);
  services_.recovery.MoveTo(RecoveryPath(dataPath, renamed));
  try {
    KeepOlder(services_.storage, log);
    services_.log.File().MoveTo(log);
  } catch (const FileError&) {
    services_.recovery.MoveTo(RecoveryPath(dataPath, identity_));
    throw;
  }
}

void ObservationHeader::Accept(const Identity& renamed) {
  identity_ = renamed;
  typed_ = {};
}

}  // namespace orvex
