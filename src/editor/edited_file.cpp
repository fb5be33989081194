#include "editor/edited_file.h"

#include <system_error>
#include <utility>

#include "desk/save_file.h"
#include "model/texts.h"
#include "store/durable_file.h"
#include "store/eps_writer.h"
#include "store/older_file.h"

namespace orvex {

namespace fs = std::filesystem;

EditedFile::EditedFile(fs::path path, EpsHeader header, std::string bytes, OpenedFile opened,
                       std::unique_ptr<FileKeeper> keeper)
    : path_(std::move(path)),
      header_(std::move(header)),
      observed_(bytes.empty() ? std::nullopt : std::optional(std::move(bytes))),
      opened_(std::move(opened)),
      keeper_(std::move(keeper)) {}

bool EditedFile::Save(const Services& services, const EpisodeList& episodes) {
  const std::string bytes = FormatEps(header_, episodes);
  std::optional<std::string> givenUp;
  const fs::path saved = SaveFile(
      services.prompter, {.failure = Say(Text::fileNotSaved), .path = path_, .filter = kEpsFilter},
      [&](const fs::path& path) {
        // For any other file, the save dialog has already asked whether to replace it.
        if (path == path_) {
          opened_.RequireUnchanged(path, bytes, givenUp);
          KeepAsObserved(services.storage);
        }
        ReplaceFile(services.storage, path, bytes);
      });
  if (saved.empty()) return false;
  path_ = saved;
  opened_.Saved(bytes);
  observed_.reset();
  if (keeper_) keeper_->Saved(path_, bytes);
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
  std::error_code unknown;
  if (!observed_ || fs::exists(fs::symlink_status(kept, unknown))) return;
  ReplaceFile(storage, kept, *observed_);
}

}  // namespace orvex
