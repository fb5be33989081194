#include "recovery/file_keeper.h"

#include <utility>

#include "model/clock.h"
#include "recovery/kept_content.h"
#include "recovery/remembered_folders.h"
#include "store/checksum.h"
#include "store/file_error.h"

namespace orvex {

FileKeeper::FileKeeper(const Services& services, std::filesystem::path path, std::string_view bytes,
                       const std::optional<UnsavedChanges>& takenUp)
    : services_(services),
      path_(std::move(path)),
      base_(takenUp ? takenUp->base : Checksum(bytes)),
      recovery_(services.storage),
      isUnsaved_(takenUp.has_value()) {
  RememberItsFolder();
  if (!takenUp) return;
  try {
    recovery_.TakeUp(UnsavedPath(path_), takenUp->number);
  } catch (const FileError& error) {
    trouble_ = error.what();
  }
}

void FileKeeper::RememberItsFolder() const {
  RememberFolder(services_.storage, services_.programFolder,
                 std::filesystem::absolute(path_).parent_path());
}

FileKeeper::~FileKeeper() {
  if (!isUnsaved_) Drop();
}

bool FileKeeper::Begin() {
  try {
    recovery_.Begin(UnsavedPath(path_));
    trouble_.clear();
  } catch (const FileError& error) {
    trouble_ = error.what();
  }
  return recovery_.IsOn();
}

void FileKeeper::Keep(std::optional<std::string> bytes) {
  isUnsaved_ = bytes.has_value();
  if (!recovery_.IsOn() && (!isUnsaved_ || !Begin())) return;
  recovery_.Keep(FormatUnsaved({.dateText = services_.clock.DateText(),
                                .timeText = services_.clock.TimeText(),
                                .base = base_,
                                .bytes = std::move(bytes)}));
}

std::string FileKeeper::Trouble() const {
  return recovery_.IsOn() ? recovery_.Trouble() : trouble_;
}

void FileKeeper::Saved(const std::filesystem::path& path, std::string_view bytes) {
  Drop();
  path_ = path;
  base_ = Checksum(bytes);
  RememberItsFolder();
}

void FileKeeper::Drop() {
  isUnsaved_ = false;
  trouble_.clear();
  try {
    recovery_.Remove();
  } catch (const FileError&) {
    // What stays says the same as the file, or is offered once more.
  }
}

}  // namespace orvex
