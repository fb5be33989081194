#include "desk/opened_file.h"

#include <system_error>
#include <utility>

#include "desk/save_file.h"
#include "model/texts.h"
#include "store/durable_file.h"
#include "store/file_error.h"

namespace orvex {
namespace {

/// Reads a file that could be read before. Throws FileError, which says so.
std::string ReadAgain(const std::filesystem::path& path) {
  try {
    return ReadFile(path);
  } catch (const FileError& error) {
    throw FileError(path, Say(Text::noLongerReadable, {error.Cause()}));
  }
}

}  // namespace

void OpenedFile::RequireUnchanged(const std::filesystem::path& path, const std::string& bytes,
                                  std::optional<std::string>& givenUp) const {
  std::error_code unknown;
  if (!std::filesystem::exists(path, unknown) && !unknown) return;
  std::string found = ReadAgain(path);
  if (bytes_ == found || found == bytes || givenUp == found) return;
  givenUp = std::move(found);
  throw FileChanged(path.string());
}

}  // namespace orvex
