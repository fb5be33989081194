#include "recovery/kept_changes.h"

#include <utility>

#include "model/clock.h"
#include "recovery/kept_content.h"
#include "recovery/remembered_folders.h"
#include "store/checksum.h"
#include "store/file_error.h"
#include "store/record.h"

namespace orvex {
namespace {

void Visit(auto& archive, auto& changes) {
  archive.Text("date", changes.dateText);
  archive.Text("time", changes.timeText);
  archive.Numbers("base", changes.base);
  archive.Optional("changed", changes.bytes, [&](auto& bytes) { archive.Text("bytes", bytes); });
}

std::string Format(const KeptChanges& changes) {
  std::string text;
  RecordWriter writer(text);
  writer.Text("Orvex unsaved changes", "1");
  Visit(writer, changes);
  return text;
}

}  // namespace

std::filesystem::path RecoveryPathBeside(std::filesystem::path file) {
  return file += kRecoveryExtension;
}

KeptChanges ReadKeptChanges(const std::filesystem::path& file) {
  const KeptContent kept = ReadKept(RecoveryPathBeside(file));
  KeptChanges changes;
  changes.number = kept.number;
  RecordReader reader(kept.content);
  std::string version;
  reader.Text("Orvex unsaved changes", version);
  if (version != "1") reader.Fail("Orvex unsaved changes");
  Visit(reader, changes);
  reader.End();
  return changes;
}

FileKeeper::FileKeeper(const Services& services, std::filesystem::path path, std::string_view bytes,
                       const std::optional<KeptChanges>& takenUp)
    : services_(services),
      path_(std::move(path)),
      base_(takenUp ? takenUp->base : Checksum(bytes)),
      recovery_(services.storage),
      hasChanges_(takenUp.has_value()) {
  RememberItsFolder();
  if (!takenUp) return;
  try {
    recovery_.TakeUp(RecoveryPathBeside(path_), takenUp->number);
  } catch (const FileError& error) {
    trouble_ = error.what();
  }
}

void FileKeeper::RememberItsFolder() const {
  RememberFolder(services_.storage, services_.programFolder,
                 std::filesystem::absolute(path_).parent_path());
}

FileKeeper::~FileKeeper() {
  if (!hasChanges_) Drop();
}

bool FileKeeper::Begin() {
  try {
    recovery_.Begin(RecoveryPathBeside(path_));
    trouble_.clear();
  } catch (const FileError& error) {
    trouble_ = error.what();
  }
  return recovery_.IsOn();
}

void FileKeeper::Keep(std::optional<std::string> bytes) {
  hasChanges_ = bytes.has_value();
  if (!recovery_.IsOn() && (!hasChanges_ || !Begin())) return;
  recovery_.Keep(Format({.dateText = services_.clock.DateText(),
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
  hasChanges_ = false;
  trouble_.clear();
  try {
    recovery_.Remove();
  } catch (const FileError&) {
    // A recovery file that stays matches the saved file, or is offered once more.
  }
}

}  // namespace orvex
