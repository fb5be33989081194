#pragma once

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace orvex {

class Prompter;

/// A file to save.
struct FileToSave {
  std::string failure;  ///< what the user is told on failure: "The survey could not be written."
  std::filesystem::path path;
  std::string filter = {};  ///< for choosing another place; empty when none is offered
  /// The extensions of the files that go with this one when it is saved in another place (see
  /// Beside).
  std::vector<std::string> companions = {};
};

/// Saves a file with `save`, which throws an exception when that fails. The user is told why, and
/// can try again or choose another place. Returns where the file was saved; empty when the user
/// gave up.
std::filesystem::path SaveFile(Prompter& prompter, const FileToSave& file,
                               const std::function<void(const std::filesystem::path&)>& save);

/// Thrown by `save` when it would replace a file that the user may not want to lose. Trying again
/// then means replacing it all the same. `what()` names the file.
struct FileChanged : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Tells the user if a file that is being opened, or its folder, is write-protected.
void TellProtection(Prompter& prompter, const std::filesystem::path& path);

/// The path of a file that is kept beside the episode file at `path`, with the same stem.
std::filesystem::path Beside(const std::filesystem::path& path, const std::string& extension);

}  // namespace orvex
