#include "app/painted_files.h"

#include <QByteArray>
#include <set>
#include <utility>

#include "commands/named_file.h"
#include "commands/named_sources.h"
#include "store/durable_file.h"
#include "store/printable_text.h"
#include "study/file_kind.h"
#include "study/problem.h"
#include "tables/table_export.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

std::string NameFor(const ListedFile& file) {
  return PathOf(file, FileKind::episodes).stem().string();
}

/// The files whose painted file would take the place of an earlier one's.
std::set<const ListedFile*> FilesOfEqualName(const FileList& list) {
  std::set<std::string> names;
  std::set<const ListedFile*> files;
  for (const ListedFile& file : list.files) {
    if (!names.insert(NameFor(file)).second) files.insert(&file);
  }
  return files;
}

}  // namespace

std::optional<LoggedClass> PaintedFiles::Read(const ListedFile& file,
                                              const Console& console) const {
  const fs::path path = PathOf(file, FileKind::episodes);
  const std::string place = PlaceOf(file, list_);
  std::optional<LoggedClass> read;
  const auto problem = ProblemOf(path, [&] {
    read = ReadLoggedClass(
        path, [&](const std::string& text) { Tell(Warning(path, 0, text), place, console); });
  });
  if (problem) Tell(*problem, place, console);
  return read;
}

bool PaintedFiles::Store(const std::string& name, const QByteArray& bytes,
                         const Console& console) const {
  const fs::path path = output_ / (name + "." + std::string(ending_));
  const auto problem = ProblemOf(path, [&] {
    RequireNoSource(path, list_);
    ReplaceFile(storage_, path, bytes.toStdString());
  });
  if (problem) {
    Tell(*problem, "", console);
    return false;
  }
  console.out << Printable(path.native()) << "\n";
  return true;
}

bool PaintedFiles::StoreEach(const std::function<QByteArray(const LoggedClass&)>& paint,
                             const Console& console) const {
  const auto ofEqualName = FilesOfEqualName(list_);
  const auto work = [&](const ListedFile& file, const Console& kept) {
    if (IsInterrupted(console)) return false;
    if (ofEqualName.contains(&file)) {
      const Problem problem = {PathOf(file, FileKind::episodes), 0,
                               "an earlier file has this name, and so would what is made of it"};
      Tell(problem, PlaceOf(file, list_), kept);
      return false;
    }
    const auto read = Read(file, kept);
    return read && Store(NameFor(file), paint(*read), kept);
  };
  bool isWhole = true;
  WorkOnFiles(list_, console, work, [&](bool isStored) { isWhole &= isStored; });
  return isWhole;
}

ExitCode MakeOfEpisodeFiles(const std::vector<fs::path>& sources, const Console& console,
                            const std::function<bool(const FileList& list)>& make) {
  auto named = ReadSources(sources, console);
  if (!named) return kFailed;
  const FileList list = FilesOf(FileKind::episodes, *std::move(named));
  if (!HasFiles(list, WordsFor(FileKind::episodes), console)) return kFailed;
  const bool isWhole = make(list) && list.unread.empty();
  if (IsInterrupted(console)) {
    console.err << "Interrupted. Not all files were made.\n";
    return kFailed;
  }
  return isWhole ? kDone : kFailed;
}

bool IsInterrupted(const Console& console) {
  return console.interrupted && console.interrupted();
}

}  // namespace orvex
