#include "commands/table_command.h"

#include <algorithm>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "commands/named_file.h"
#include "commands/named_sources.h"
#include "model/wording.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/printable_text.h"
#include "study/problem.h"
#include "tables/file_list.h"
#include "tables/repeats.h"
#include "tables/sqlite_tables.h"
#include "tables/table_export.h"

namespace orvex {
namespace {

/// Shows "12 of 300 files" on one line of the terminal and clears that line afterwards.
class Progress {
 public:
  explicit Progress(const Console& console) : console_(console) {}
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Show(std::size_t done, std::size_t count) {
    constexpr std::size_t kSteps = 200;  // printing more often would slow the work down
    if (!console_.showsProgress || done < next_) return;
    next_ = done + count / kSteps + 1;
    console_.err << "\r" << done << " of " << Counted(count, "file") << std::flush;
    shown_ = true;
  }
  void Clear() {
    constexpr const char* kStartOfEmptyLine = "\r\033[K";
    if (std::exchange(shown_, false)) console_.err << kStartOfEmptyLine << std::flush;
  }

 private:
  const Console& console_;
  std::size_t next_ = 0;
  bool shown_ = false;
};

/// Where the tables of `list` go; see ExportCommand::output.
std::filesystem::path TableFolder(const FileList& list, const std::filesystem::path& output) {
  if (!output.empty() || list.sources.size() != 1) return output;
  const Source& source = list.sources.front();
  switch (source.kind) {
    case Source::Kind::folder:
      return source.path;
    case Source::Kind::list:
      return source.path.parent_path();
    case Source::Kind::input:
    case Source::Kind::file:
      break;
  }
  return {};
}

/// What is to be told of the files and the list: all, or nothing again that another table told.
enum class Notes { areTold, wereTold };

/// The files of `list` that a table of `kind` is made from. Nothing when a folder has no such file.
std::optional<FileList> FilesToJoin(const TableKind& kind, FileList list, const Console& console) {
  FileList files = FilesFor(kind, std::move(list));
  if (!HasFiles(files, WordsFor(kind.files), console)) return std::nullopt;
  return files;
}

/// Warns about observations that come twice.
void TellRepeats(const FileList& list, const Console& console) {
  for (const Repeat& repeat : RepeatsIn(list)) {
    const ListedFile& file = *repeat.file;
    const auto& path = file.line > 0 ? list.SourceOf(file).path : file.path;
    console.err << Warning(path, file.line, repeat.text).Text() << "\n";
  }
}

/// The surveys of `list` as far as there are some.
FileList SurveysThatAreThere(const FileList& list) {
  FileList files = FilesOf(FileKind::survey, list);
  std::error_code unknown;
  std::erase_if(files.files, [&](const ListedFile& file) {
    return !std::filesystem::exists(PathOf(file, FileKind::survey), unknown);
  });
  return files;
}

void TellNotes(const FileNotes& notes, const std::string& place, const Console& console) {
  for (const FileWarning& warning : notes.warnings) {
    console.err << Warning(notes.file, 0, warning.text).Text() << "\n";
  }
  if (notes.problem) Tell(*notes.problem, place, console);
}

/// Makes a table. `kFailed` when the table was not stored or stops before the end of the list;
/// `kFound` when bad files were left out.
ExitCode Make(TableExport& table, const Console& console, Notes told = Notes::areTold) {
  if (told == Notes::areTold) TellRepeats(table.List(), console);  // while the files are read
  Progress progress(console);
  std::size_t bad = 0;
  while (!table.Finished()) {
    if (console.interrupted && console.interrupted()) {
      progress.Clear();
      console.err << "Interrupted after " << table.Done() << " of "
                  << Counted(table.Count(), "file") << ". " << WithoutNewTable(table.Table())
                  << "\n";
      return kFailed;
    }
    progress.Show(table.Done(), table.Count());
    const FileNotes notes = table.Step();
    if (notes.problem) ++bad;
    if (told == Notes::wereTold || (!notes.problem && notes.warnings.empty())) continue;
    progress.Clear();
    TellNotes(notes, PlaceOf(table.List().files[table.Done() - 1], table.List()), console);
  }
  progress.Clear();
  if (!table.Commit()) {
    console.err << "There are no rows. " << WithoutNewTable(table.Table()) << "\n";
    return kFailed;
  }
  if (!table.Table().empty()) {
    console.out << Printable(table.Table().native()) << ": " << Counted(table.Rows(), "row")
                << " from " << Counted(table.Files(), "file")
                << (table.LastInPart() ? ", the last in part" : "") << "\n";
  }
  if (table.Done() < table.Count()) {
    console.err << "The table ends there. Files not read: " << table.Count() - table.Done()
                << ".\n";
  }
  if (bad == 0) return kDone;
  return table.Ended() || table.Files() == 0 ? kFailed : kFound;
}

TableExport ExportTo(const std::filesystem::path& folder, TableKind kind, FileList files,
                     BadFile badFile, Storage& storage, const Console& console) {
  if (folder == kStandardOutput) {
    return {console.out, std::move(kind), std::move(files), badFile};
  }
  std::filesystem::path path = folder / kind.fileName;
  return {storage, std::move(kind), std::move(files), std::move(path), badFile};
}

/// Runs `command`. Writes why and returns `kFailed` when it throws FileError.
template <typename Command>
ExitCode Run(const Console& console, Command command) try {
  return command();
} catch (const FileError& error) {
  console.err << error.what() << "\n";
  return kFailed;
}

/// Makes a tidy table in `folder`, and its codebook.
ExitCode MakeTidyTable(TidyTable tidy, FileList files, std::optional<CodebookKind> codebook,
                       const std::filesystem::path& folder, Storage& storage,
                       const Console& console, Notes told) {
  const TableKind kind = TidyTableKind(tidy);
  if (codebook) RequireNoSource(folder / CodebookFileName(tidy, *codebook), files);
  TableExport table =
      ExportTo(folder, kind, std::move(files), BadFile::isSkipped, storage, console);
  const ExitCode code = Make(table, console, told);
  if (codebook && code != kFailed) {
    const std::filesystem::path path = folder / CodebookFileName(tidy, *codebook);
    ReplaceFile(storage, path, Codebook(tidy, *codebook, table.Table()));
    console.out << Printable(path.native()) << ": the variables of the table and their values\n";
  }
  return code;
}

ExitCode MakeDatabase(const FileList& sources, const std::filesystem::path& folder,
                      Storage& storage, const Console& console) {
  const TableKind kind = SqliteTableKind();
  auto files = FilesToJoin(kind, sources, console);
  if (!files) return kFailed;
  TableExport table(storage, kind, *std::move(files), folder / kind.fileName, BadFile::isSkipped);
  return Make(table, console);
}

/// Makes the tables one after another. A study may be without surveys, so with several tables only
/// the surveys that are there count.
ExitCode MakeTidyTables(const TableCommand& command, const FileList& sources,
                        const std::filesystem::path& folder, Storage& storage,
                        const Console& console) {
  ExitCode code = kDone;
  const bool several = command.tables.size() > 1;
  Notes told = Notes::areTold;  // of the episode files
  for (const TidyTable tidy : command.tables) {
    const TableKind kind = TidyTableKind(tidy);
    const bool ofSurveys = kind.files == FileKind::survey;
    auto files = several && ofSurveys ? std::optional(SurveysThatAreThere(sources))
                                      : FilesToJoin(kind, sources, console);
    if (!files) return kFailed;
    const ExitCode made =
        MakeTidyTable(tidy, *std::move(files), command.codebook, folder, storage, console,
                      ofSurveys ? Notes::areTold : std::exchange(told, Notes::wereTold));
    code = std::max(code, made);
    if (console.interrupted && console.interrupted()) return kFailed;
  }
  return code;
}

}  // namespace

ExitCode RunExport(const ExportCommand& command, Storage& storage, const Console& console) {
  return Run(console, [&] {
    const TableKind kind = TableOf(command.kind);
    auto sources = ReadSources(command.sources, console);
    if (!sources) return kFailed;
    const std::filesystem::path folder = TableFolder(*sources, command.output);
    auto files = FilesToJoin(kind, *std::move(sources), console);
    if (!files) return kFailed;
    TableExport table =
        ExportTo(folder, kind, *std::move(files),
                 command.keepGoing ? BadFile::isSkipped : BadFile::endsTheTable, storage, console);
    return Make(table, console);
  });
}

ExitCode RunTable(const TableCommand& command, Storage& storage, const Console& console) {
  return Run(console, [&] {
    const auto sources = ReadSources(command.sources, console);
    if (!sources) return kFailed;
    const std::filesystem::path folder = TableFolder(*sources, command.output);
    const ExitCode code = command.sqlite
                              ? MakeDatabase(*sources, folder, storage, console)
                              : MakeTidyTables(command, *sources, folder, storage, console);
    return code == kDone ? kDone : kFailed;
  });
}

}  // namespace orvex
