#include "commands/table_command.h"

#include <optional>
#include <string>
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

/// Reads the sources, keeps the files of `kind`, and warns about observations that come twice.
/// Nothing when a source could not be read, or a folder has no such file.
std::optional<FileList> FilesFor(const std::vector<std::filesystem::path>& sources, FileKind kind,
                                 const Console& console) {
  auto list = ReadSources(sources, console);
  if (!list) return std::nullopt;
  FileList files = FilesOf(kind, *std::move(list));
  if (!HasFiles(files, WordsFor(kind), console)) return std::nullopt;
  for (const Repeat& repeat : RepeatsIn(files)) {
    const ListedFile& file = *repeat.file;
    const auto& path = file.line > 0 ? files.SourceOf(file).path : file.path;
    console.err << Warning(path, file.line, repeat.text).Text() << "\n";
  }
  return files;
}

/// Makes a table. `kFailed` when the table was not stored or stops before the end of the list;
/// `kFound` when bad files were left out.
ExitCode Make(TableExport& table, const Console& console) {
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
    if (notes.problem || !notes.warnings.empty()) progress.Clear();
    for (const FileWarning& warning : notes.warnings) {
      console.err << Warning(notes.file, 0, warning.text).Text() << "\n";
    }
    if (notes.problem) {
      const FileList& list = table.List();
      Tell(*notes.problem, PlaceOf(list.files[table.Done() - 1], list), console);
      ++bad;
    }
  }
  progress.Clear();
  if (!table.Commit()) {
    console.err << "There are no rows. " << WithoutNewTable(table.Table()) << "\n";
    return kFailed;
  }
  console.out << Printable(table.Table().native()) << ": " << Counted(table.Rows(), "row")
              << " from " << Counted(table.Files(), "file")
              << (table.LastInPart() ? ", the last in part" : "") << "\n";
  if (table.Done() < table.Count()) {
    console.err << "The table ends there. Files not read: " << table.Count() - table.Done()
                << ".\n";
  }
  if (bad == 0) return kDone;
  return table.Ended() || table.Files() == 0 ? kFailed : kFound;
}

/// Runs `command`. Writes why and returns `kFailed` when it throws FileError.
template <typename Command>
ExitCode Run(const Console& console, Command command) try {
  return command();
} catch (const FileError& error) {
  console.err << error.what() << "\n";
  return kFailed;
}

}  // namespace

ExitCode RunExport(const ExportCommand& command, Storage& storage, const Console& console) {
  return Run(console, [&] {
    const TableKind kind = TableOf(command.kind);
    auto list = FilesFor(command.sources, kind.files, console);
    if (!list) return kFailed;
    const std::filesystem::path path = TableFolder(*list, command.output) / kind.fileName;
    TableExport table(storage, kind, *std::move(list), path,
                      command.keepGoing ? BadFile::isSkipped : BadFile::endsTheTable);
    return Make(table, console);
  });
}

ExitCode RunTable(const TableCommand& command, Storage& storage, const Console& console) {
  return Run(console, [&] {
    const TableKind kind = TidyTableKind(command.table);
    auto list = FilesFor(command.sources, kind.files, console);
    if (!list) return kFailed;
    const std::filesystem::path folder = TableFolder(*list, command.output);
    const std::filesystem::path codebook = folder / CodebookFileName(command.table);
    if (command.codebook) RequireNoSource(codebook, *list);
    TableExport table(storage, kind, *std::move(list), folder / kind.fileName, BadFile::isSkipped);
    const ExitCode code = Make(table, console);
    if (command.codebook && code != kFailed) {
      ReplaceFile(storage, codebook, Codebook(command.table));
      console.out << Printable(codebook.native())
                  << ": the variables of the table and their values\n";
    }
    return code == kDone ? kDone : kFailed;
  });
}

}  // namespace orvex
