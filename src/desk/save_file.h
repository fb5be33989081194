#pragma once

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace orvex {

class Prompter;

/// A file that is to be saved.
struct FileToSave {
  std::string failure;  ///< what is told when it cannot be: "The survey could not be written."
  std::filesystem::path path;
  std::string filter = {};  ///< for choosing another place; empty where there is none
  /// The extensions of what else is saved beside the file in another place (see Beside).
  std::vector<std::string> companions = {};
  /// What is told when FileChanged is thrown.
  std::string changed = "The file was changed by another program.";
};

/// Saves a file with `save`, which throws what goes wrong. The user is told what it was, and can
/// have it tried again or choose another place. Returns where the file was saved; empty when the
/// user gave up.
std::filesystem::path SaveFile(Prompter& prompter, const FileToSave& file,
                               const std::function<void(const std::filesystem::path&)>& save);

/// Thrown by `save` when there is a file that the user may not want to lose: to try again then
/// means to replace it all the same. `what()` names the file.
struct FileChanged : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Tells that a file that is being opened, or its folder, is write-protected, when it is.
void TellProtection(Prompter& prompter, const std::filesystem::path& path);

/// The file that is kept beside the episode file at `path`, under the same stem.
std::filesystem::path Beside(const std::filesystem::path& path, const std::string& extension);

}  // namespace orvex
