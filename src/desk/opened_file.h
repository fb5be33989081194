#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace orvex {

/// What a file held when it was opened or last saved, so that nothing another program has put there
/// since is replaced unasked.
class OpenedFile {
 public:
  explicit OpenedFile(std::string bytes) : bytes_(std::move(bytes)) {}

  /// What is edited was not made from the file's content, so every content counts as changed.
  void Distrust() { bytes_.reset(); }
  void Saved(std::string bytes) { bytes_ = std::move(bytes); }

  /// Throws FileChanged if the file at `path` has been changed by another program, and FileError if
  /// it can no longer be read. A file that is gone, or already holds `bytes`, is fine. `givenUp` is
  /// the foreign content that the last FileChanged was about: the user has been asked and is not
  /// asked again.
  void RequireUnchanged(const std::filesystem::path& path, const std::string& bytes,
                        std::optional<std::string>& givenUp) const;

 private:
  std::optional<std::string> bytes_;
};

}  // namespace orvex
