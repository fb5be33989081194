#include "commands/named_sources.h"

#include "study/problem.h"

namespace orvex {

std::optional<FileList> ReadSources(const std::vector<std::filesystem::path>& sources,
                                    const Console& console) {
  FileList list;
  for (const std::filesystem::path& source : sources) {
    const auto problem =
        ProblemOf(source, [&] { AddSource(source, console.in, list, console.interrupted); });
    if (console.interrupted && console.interrupted()) {
      console.err << "Interrupted while the files were looked for. Nothing was written.\n";
      return std::nullopt;
    }
    if (problem) {
      console.err << problem->Text() << "\n";
      return std::nullopt;
    }
  }
  for (const FileError& folder : list.unread) console.err << folder.what() << "\n";
  return list;
}

bool HasFiles(const FileList& list, const std::string& expected, const Console& console) {
  const Source* const folder = EmptyFolder(list);
  if (!folder) return true;
  console.err << Problem{folder->path, 0, "there is no " + expected + " in it"}.Text() << "\n";
  return false;
}

}  // namespace orvex
