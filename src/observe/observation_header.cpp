#include "observe/observation_header.h"

#include <filesystem>

#include "model/prompter.h"
#include "store/file_error.h"
#include "store/numbers.h"
#include "store/paths.h"
#include "store/recovery_file.h"
#include "store/session_log.h"

namespace orvex {
namespace {

constexpr HeaderRound kRound = {HeaderBox::schoolNum, HeaderBox::classNum, HeaderBox::observNum,
                                HeaderBox::initials, HeaderBox::numStudents};

}  // namespace

ObservationHeader::ObservationHeader(const Services& services)
    : services_(services),
      identity_(services.program.identity),
      logged_(identity_),
      lastStudents_(identity_.NumStudents) {
  // A class that is taken up again may have been in the middle of a correction.
  if (services.log.File().IsOpen()) NameAfter(services.log.File().Path(), logged_);
}

const std::string& ObservationHeader::Text(HeaderBox box) const {
  return HeaderText(identity_, box);
}

void ObservationHeader::Type(HeaderBox box, const std::string& text) {
  TypeHeaderText(identity_, box, text);
}

std::string ObservationHeader::ClassIdText() const {
  return "Class ID  " + identity_.ClassId();
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
  std::string& text = HeaderText(identity_, box);
  if (!HoldsValidText(identity_, box)) {
    text.clear();
    return false;
  }
  switch (box) {
    case HeaderBox::initials:
      return true;
    case HeaderBox::numStudents:
      if (text.empty()) {
        text = lastStudents_;
        return false;
      }
      lastStudents_ = text;
      if (rememberedStudents_ && *rememberedStudents_ != text) services_.log.LogRevisedN(text);
      return true;
    case HeaderBox::schoolNum:
    case HeaderBox::classNum:
    case HeaderBox::observNum:
      break;
  }
  return LeaveNumber(box);
}

bool ObservationHeader::LeaveNumber(HeaderBox box) {
  std::string& text = HeaderText(identity_, box);
  if (text.empty()) {
    // A file name with a missing part would be nobody's: the box gets back what the log is named
    // by.
    text = HeaderText(logged_, box);
    return false;
  }
  // A box that agrees with the log is always left, whatever another one was declined.
  if (text == HeaderText(logged_, box)) return true;
  if (RenameSessionLog()) return true;
  if (box == HeaderBox::observNum) return true;
  text.clear();
  return false;
}

bool ObservationHeader::RenameSessionLog() {
  const std::filesystem::path& dataPath = services_.program.DataPath;
  for (const HeaderBox box : {HeaderBox::schoolNum, HeaderBox::classNum, HeaderBox::observNum}) {
    // While one number is being corrected, the others name no file.
    if (!IdentityNumber(HeaderText(identity_, box))) return true;
  }
  const std::filesystem::path target = BakPath(dataPath, identity_);
  if (services_.log.File().Path().filename() == target.filename()) return true;
  try {
    MakeBakFolders(services_.storage, dataPath, identity_);
    std::error_code unreadable;
    if (std::filesystem::exists(target, unreadable) &&
        !services_.prompter.AskOkCancel(target.filename().string() +
                                        " already exists. Overwrite it?")) {
      return false;
    }
    services_.recovery.MoveTo(RecoveryPath(dataPath, identity_));
    try {
      services_.log.File().MoveTo(target);
    } catch (const FileError&) {
      services_.recovery.MoveTo(RecoveryPath(dataPath, logged_));
      throw;
    }
  } catch (const FileError& error) {
    services_.prompter.Tell("The session log could not be renamed.", error.what());
    return false;
  }
  logged_ = identity_;
  return true;
}

}  // namespace orvex
