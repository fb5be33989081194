#include "commands/named_sources.h"

#include "study/problem.h"

namespace orvex {

std::optional<FileList> ReadSources(const std::vector<std::filesystem::path>& sources,
                                    const Console& console) {
  FileList list;
  for (const std::filesystem::path& source : sources) {
    if (const auto problem = ProblemOf(source, [&] { AddSource(source, console.in, list); })) {
      console.err << problem->Text() << "\n";
      return std::nullopt;
    }
  }
  return list;
}

bool HasFiles(const FileList& list, const std::string& expected, const Console& console) {
  const Source* const folder = EmptyFolder(list);
  if (!folder) return true;
  console.err << Problem{folder->path, 0, "there is no " + expected + " in it"}.Text() << "\n";
  return false;
}

}  // namespace orvex
