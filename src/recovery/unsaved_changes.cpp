#include "recovery/unsaved_changes.h"

#include <stdexcept>
#include <system_error>
#include <utility>

#include "recovery/claim.h"
#include "recovery/kept_content.h"
#include "recovery/record.h"
#include "recovery/recovery_file.h"
#include "store/checksum.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/format_error.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

void Visit(auto& archive, auto& changes) {
  archive.Text("date", changes.dateText);
  archive.Text("time", changes.timeText);
  archive.Numbers("base", changes.base);
  archive.Optional("changed", changes.bytes, [&](auto& bytes) { archive.Text("bytes", bytes); });
}

/// Nothing when the file is gone, or cannot be read.
std::optional<std::string> BytesOf(const fs::path& file) {
  try {
    return ReadFile(file);
  } catch (const FileError&) {
    return std::nullopt;
  }
}

void Remove(const Services& services, const fs::path& file, const UnsavedChanges& changes) {
  RecoveryFile kept(services.storage);
  kept.TakeUp(UnsavedPath(file), changes.number);
  kept.Remove();
}

}  // namespace

fs::path UnsavedPath(fs::path file) {
  return file += kRecoveryExtension;
}

std::string FormatUnsaved(const UnsavedChanges& changes) {
  std::string text;
  RecordWriter writer(text);
  writer.Text("Orvex unsaved changes", "1");
  Visit(writer, changes);
  return text;
}

UnsavedChanges ParseUnsaved(const std::string& content) {
  UnsavedChanges changes;
  RecordReader reader(content);
  std::string version;
  reader.Text("Orvex unsaved changes", version);
  if (version != "1") reader.Fail("Orvex unsaved changes");
  Visit(reader, changes);
  reader.End();
  return changes;
}

UnsavedChanges ReadUnsaved(const fs::path& file) {
  const KeptContent kept = ReadKept(UnsavedPath(file));
  UnsavedChanges changes = ParseUnsaved(kept.content);
  changes.number = kept.number;
  return changes;
}

std::optional<UnsavedChanges> FindUnsaved(const Services& services, const fs::path& file) {
  if (!IsKeptAt(UnsavedPath(file)) || IsClaimed(UnsavedPath(file))) return std::nullopt;
  std::string cause;
  try {
    UnsavedChanges changes = ReadUnsaved(file);
    if (changes.bytes && changes.bytes != BytesOf(file)) return changes;
    Remove(services, file, changes);
    return std::nullopt;
  } catch (const FileError& error) {
    cause = error.what();
  } catch (const FormatError& error) {
    cause = UnsavedPath(file).string() + ": " + error.what();
  }
  services.prompter.Tell(kUnsavedUnreadable, cause);
  return std::nullopt;
}

std::string ChangeOf(const fs::path& file, const UnsavedChanges& changes) {
  const std::optional<std::string> bytes = BytesOf(file);
  if (bytes && Checksum(*bytes) == changes.base) return "";
  std::error_code unknown;
  if (!fs::exists(file, unknown)) return "\n\nThe file itself is gone since then.";
  return "\n\nThe file itself has been changed by another program since then.";
}

Message QuestionOfUnsaved(const fs::path& file, const UnsavedChanges& changes) {
  return {.text = file.filename().string() + " was changed on " + changes.dateText + " at " +
                  changes.timeText + ", and the changes were not saved." + ChangeOf(file, changes),
          .buttons = Buttons::yesNoCancel,
          .defaultAnswer = Answer::yes,
          .captions = {{Answer::yes, "&Take them up"},
                       {Answer::no, "&Discard them"},
                       {Answer::cancel, "&Leave them for later"}}};
}

bool DiscardUnsaved(const Services& services, const fs::path& file, const UnsavedChanges& changes) {
  try {
    Remove(services, file, changes);
    return true;
  } catch (const FileError& error) {
    services.prompter.Tell("The changes could not be discarded.", error.what());
    return false;
  }
}

Resumption Resume(const Services& services, const fs::path& file, Unsaved unsaved) {
  std::optional<UnsavedChanges> changes = FindUnsaved(services, file);
  if (!changes || unsaved == Unsaved::isTakenUp) return {.changes = std::move(changes)};
  switch (services.prompter.Ask(QuestionOfUnsaved(file, *changes))) {
    case Answer::yes:
      return {.changes = std::move(changes)};
    case Answer::no:
      return {.isOpened = DiscardUnsaved(services, file, *changes)};
    default:
      return {.isOpened = false};
  }
}

}  // namespace orvex
