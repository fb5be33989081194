#include "commands/table_command.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "commands/named_file.h"
#include "commands/named_sources.h"
#include "commands/progress.h"
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

/// The files of `list` that a table of `kind` is made from, in `folder`. Nothing when a folder has
/// no such file, or all lists are empty: a search that was cut short must not empty a table.
std::optional<FileList> FilesToJoin(const TableKind& kind, FileList list,
                                    const std::filesystem::path& folder, const Console& console) {
  FileList files = FilesFor(kind, std::move(list));
  if (!HasFiles(files, WordsFor(kind.files), console)) return std::nullopt;
  if (!files.files.empty() || folder == kStandardOutput) return files;
  console.err << Problem{files.sources.front().path, 0, "there is no observation in it"}.Text()
              << "\n"
              << WithoutNewTable(folder / kind.fileName) << "\n";
  return std::nullopt;
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

/// Adds the rows of all files. False when the user has stopped it; `console.err` then says so in a
/// line that has not ended yet.
bool ReadAll(TableExport& table, const Console& console, Notes told = Notes::areTold) {
  if (told == Notes::areTold) TellRepeats(table.List(), console);  // while the files are read
  Progress progress(console, "file");
  for (;;) {
    if (console.interrupted && console.interrupted()) {
      progress.Clear();
      console.err << "Interrupted after " << table.Done() << " of "
                  << Counted(table.Count(), "file") << ".";
      return false;
    }
    if (table.Finished()) return true;
    progress.Show(table.Done(), table.Count());
    const FileNotes notes = table.Step();
    if (told == Notes::wereTold || notes.Empty()) continue;
    progress.Clear();
    Tell(notes, PlaceOf(table.List().files[table.Done() - 1], table.List()), console);
  }
}

/// Moves a table into place. `kFailed` when it was not stored or stops before the end of the list;
/// `kFound` when bad files were left out.
ExitCode Store(TableExport& table, const Console& console) {
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
  if (table.Bad() == 0) return kDone;
  return table.Ended() || table.Files() == 0 ? kFailed : kFound;
}

/// Makes a table that is the only one.
ExitCode Make(TableExport& table, const Console& console) {
  if (ReadAll(table, console)) return Store(table, console);
  console.err << " " << WithoutNewTable(table.Table()) << "\n";
  return kFailed;
}

std::unique_ptr<TableExport> ExportTo(const std::filesystem::path& folder, TableKind kind,
                                      FileList files, BadFile badFile, Storage& storage,
                                      const Console& console) {
  if (folder == kStandardOutput) {
    return std::make_unique<TableExport>(console.out, std::move(kind), std::move(files), badFile);
  }
  std::filesystem::path path = folder / kind.fileName;
  return std::make_unique<TableExport>(storage, std::move(kind), std::move(files), std::move(path),
                                       badFile);
}

/// Runs `command`. Writes why and returns `kFailed` when it throws FileError.
template <typename Command>
ExitCode Run(const Console& console, Command command) try {
  return command();
} catch (const FileError& error) {
  console.err << error.what() << "\n";
  return kFailed;
}

/// Lets `make` make the tables of what `command` names in their folder. Fails also when part of it
/// could not be read.
template <typename Command, typename Making>
ExitCode RunOnSources(const Command& command, const Console& console, Making make) {
  return Run(console, [&] {
    auto sources = ReadSources(command.sources, console);
    if (!sources) return kFailed;
    const bool isWhole = sources->unread.empty();
    const std::filesystem::path folder = TableFolder(*sources, command.output);
    const ExitCode code = make(*std::move(sources), folder);
    return isWhole ? code : kFailed;
  });
}

/// A tidy table that has all its rows, but is not in its place yet.
struct ReadTable {
  TidyTable tidy;
  std::unique_ptr<TableExport> table;
};

/// Writes a codebook of a table that is in its place already.
ExitCode StoreCodebook(const ReadTable& read, CodebookKind kind, Storage& storage,
                       const Console& console) {
  const std::filesystem::path& table = read.table->Table();
  const std::filesystem::path path = table.parent_path() / CodebookFileName(read.tidy, kind);
  const ExitCode code = Run(console, [&] {
    ReplaceFile(storage, path, Codebook(read.tidy, kind, table));
    return kDone;
  });
  if (code == kDone) {
    console.out << Printable(path.native()) << ": the variables of the table and their values\n";
  } else {
    console.err << "The table " << table.filename().string() << " is the new one. "
                << WithoutNewTable(path) << "\n";
  }
  return code;
}

/// Moves tables into their places, each with its codebooks. One that cannot be stored does not keep
/// the others from it.
ExitCode StoreAll(const std::vector<ReadTable>& tables, const std::set<CodebookKind>& codebooks,
                  Storage& storage, const Console& console) {
  ExitCode code = kDone;
  for (const ReadTable& read : tables) {
    const ExitCode stored = Run(console, [&] { return Store(*read.table, console); });
    code = std::max(code, stored);
    if (stored == kFailed) continue;
    for (const CodebookKind kind : codebooks) {
      code = std::max(code, StoreCodebook(read, kind, storage, console));
    }
  }
  return code;
}

ExitCode MakeDatabase(FileList sources, const std::filesystem::path& folder, Storage& storage,
                      const Console& console) {
  const TableKind kind = SqliteTableKind();
  auto files = FilesToJoin(kind, std::move(sources), folder, console);
  if (!files) return kFailed;
  TableExport table(storage, kind, *std::move(files), folder / kind.fileName, BadFile::isSkipped);
  return Make(table, console);
}

/// Makes the tables one after another, and moves them into place when all are finished. A study may
/// be without surveys, so with several tables only the surveys that are there count.
ExitCode MakeTidyTables(const TableCommand& command, const FileList& sources,
                        const std::filesystem::path& folder, Storage& storage,
                        const Console& console) {
  std::vector<ReadTable> tables;
  const bool several = command.tables.size() > 1;
  Notes told = Notes::areTold;  // of the episode files
  for (const TidyTable tidy : command.tables) {
    const TableKind kind = TidyTableKind(tidy);
    const bool ofSurveys = kind.files == FileKind::survey;
    auto files = several && ofSurveys ? std::optional(SurveysThatAreThere(sources))
                                      : FilesToJoin(kind, sources, folder, console);
    if (!files) return kFailed;
    for (const CodebookKind codebook : command.codebooks) {
      RequireNoSource(folder / CodebookFileName(tidy, codebook), *files);
    }
    tables.push_back(
        {tidy, ExportTo(folder, kind, *std::move(files), BadFile::isSkipped, storage, console)});
    TableExport& table = *tables.back().table;
    if (!ReadAll(table, console,
                 ofSurveys ? Notes::areTold : std::exchange(told, Notes::wereTold))) {
      console.err << " "
                  << (several ? "All earlier tables stay as they were."
                              : WithoutNewTable(table.Table()))
                  << "\n";
      return kFailed;
    }
    table.ForgetList();
  }
  return StoreAll(tables, command.codebooks, storage, console);
}

}  // namespace

ExitCode RunExport(const ExportCommand& command, Storage& storage, const Console& console) {
  return RunOnSources(command, console, [&](FileList sources, const auto& folder) {
    const TableKind kind = TableOf(command.kind);
    auto files = FilesToJoin(kind, std::move(sources), folder, console);
    if (!files) return kFailed;
    const auto table =
        ExportTo(folder, kind, *std::move(files),
                 command.keepGoing ? BadFile::isSkipped : BadFile::endsTheTable, storage, console);
    return Make(*table, console);
  });
}

ExitCode RunTable(const TableCommand& command, Storage& storage, const Console& console) {
  return RunOnSources(command, console, [&](FileList sources, const auto& folder) {
    const ExitCode code = command.sqlite
                              ? MakeDatabase(std::move(sources), folder, storage, console)
                              : MakeTidyTables(command, sources, folder, storage, console);
    // Tidy tables leave out what they cannot read: whatever there is to report is missing in them.
    return code == kDone ? kDone : kFailed;
  });
}

}  // namespace orvex
