#include "editor/edited_file.h"

#include <system_error>
#include <utility>

#include "desk/save_file.h"
#include "model/texts.h"
#include "store/durable_file.h"
#include "store/eps_writer.h"
#include "store/file_error.h"
#include "store/older_file.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Reads a file that could be read before. Throws FileError, which says so.
std::string ReadAgain(const fs::path& path) {
  try {
    return ReadFile(path);
  } catch (const FileError& error) {
    throw FileError(path, Say(Text::noLongerReadable, {error.Cause()}));
  }
}

}  // namespace

EditedFile::EditedFile(fs::path path, EpsHeader header, std::string bytes,
                       std::unique_ptr<FileKeeper> keeper)
    : path_(std::move(path)),
      header_(std::move(header)),
      bytes_(std::move(bytes)),
      observed_(bytes_.empty() ? std::nullopt : std::optional(bytes_)),
      keeper_(std::move(keeper)) {}

bool EditedFile::Save(const Services& services, const EpisodeList& episodes) {
  const std::string bytes = FormatEps(header_, episodes);
  std::optional<std::string> givenUp;
  const fs::path saved = SaveFile(
      services.prompter, {.failure = Say(Text::fileNotSaved), .path = path_, .filter = kEpsFilter},
      [&](const fs::path& path) {
        // For any other file, the save dialog has already asked whether to replace it.
        if (path == path_) {
          RequireUnchanged(bytes, givenUp);
          KeepAsObserved(services.storage);
        }
        ReplaceFile(services.storage, path, bytes);
      });
  if (saved.empty()) return false;
  path_ = saved;
  bytes_ = bytes;
  observed_.reset();
  if (keeper_) keeper_->Saved(path_, bytes_);
  return true;
}

void EditedFile::Keep(const EpisodeList* changed) {
  if (!keeper_) return;
  std::optional<std::string> bytes;
  if (changed) bytes = FormatEps(header_, *changed);
  keeper_->Keep(std::move(bytes));
}

void EditedFile::RetryKeeping() {
  if (keeper_) keeper_->Retry();
}

void EditedFile::AwaitKept() {
  if (keeper_) keeper_->AwaitStored();
}

void EditedFile::StopKeeping() {
  if (keeper_) keeper_->Drop();
  keeper_.reset();
}

/// Keeps a copy of the original content unless there is one. Throws FileError; do not save then.
void EditedFile::KeepAsObserved(Storage& storage) const {
  const fs::path kept = ObservedPath(path_);
  if (observed_ && !fs::exists(fs::symlink_status(kept))) ReplaceFile(storage, kept, *observed_);
}

/// Throws FileChanged if another program has changed the file, and FileError if it can no longer be
/// read. A file that is gone, or already holds `bytes`, is fine. `givenUp` is the foreign content
/// that the last FileChanged reported: the user has been asked about it and is not asked again.
void EditedFile::RequireUnchanged(const std::string& bytes,
                                  std::optional<std::string>& givenUp) const {
  std::error_code unknown;
  if (!fs::exists(path_, unknown) && !unknown) return;
  std::string found = ReadAgain(path_);
  if (found == bytes_ || found == bytes || givenUp == found) return;
  givenUp = std::move(found);
  throw FileChanged(path_.string());
}

}  // namespace orvex
