#include "commands/table_command.h"

#include <string>
#include <utility>

#include "model/wording.h"
#include "store/durable_file.h"
#include "store/printable_text.h"
#include "study/problem.h"
#include "tables/file_list.h"
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

std::filesystem::path TableFolder(const std::filesystem::path& list,
                                  const std::filesystem::path& output) {
  return output.empty() ? list.parent_path() : output;
}

/// Writes the warnings about files that could be read.
WarnOf WarnOn(const Console& console, Progress& progress) {
  return [&](const std::filesystem::path& file, const std::string& warning) {
    progress.Clear();
    console.err << Warning(file, 0, warning).Text() << "\n";
  };
}

void WarnOfRepeats(const FileList& list, const Console& console) {
  for (const Repeat& repeat : RepeatsIn(list)) {
    console.err << Warning(list.path, repeat.line, repeat.text).Text() << "\n";
  }
}

/// Reads the list at `path` and warns about names that it holds twice.
FileList ListFor(const std::filesystem::path& path, const Console& console) {
  FileList list = ReadFileList(path);
  WarnOfRepeats(list, console);
  return list;
}

/// Makes a table. `kFailed` when the table was not stored or stops before the end of the list;
/// `kFound` when bad files were left out.
ExitCode Make(TableExport& table, const Console& console, Progress& progress) {
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
    if (const auto problem = table.Step()) {
      progress.Clear();
      console.err << problem->Text() << "\n";
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

/// Runs `command`. Writes the problem and returns `kFailed` when the list cannot be read or the
/// table cannot be written.
template <typename Command>
ExitCode RunOnList(const std::filesystem::path& list, const Console& console, Command command) {
  ExitCode code = kFailed;
  if (const auto problem = ProblemOf(list, [&] { code = command(); })) {
    console.err << problem->Text() << "\n";
    return kFailed;
  }
  return code;
}

}  // namespace

ExitCode RunExport(const ExportCommand& command, Storage& storage, const Console& console) {
  return RunOnList(command.list, console, [&] {
    Progress progress(console);
    const WarnOf warn = WarnOn(console, progress);
    const TableKind kind = TableOf(command.kind, {.ofReading = warn, .ofNames = warn});
    TableExport table(storage, kind, ListFor(command.list, console),
                      TableFolder(command.list, command.output) / kind.fileName,
                      command.keepGoing ? BadFile::isSkipped : BadFile::endsTheTable);
    return Make(table, console, progress);
  });
}

ExitCode RunTable(const TableCommand& command, Storage& storage, const Console& console) {
  return RunOnList(command.list, console, [&] {
    Progress progress(console);
    const TableKind kind = TidyTableKind(command.table, WarnOn(console, progress));
    const std::filesystem::path folder = TableFolder(command.list, command.output);
    const std::filesystem::path codebook = folder / CodebookFileName(command.table);
    if (command.codebook) RequireNotTheList(codebook, command.list);
    TableExport table(storage, kind, ListFor(command.list, console), folder / kind.fileName,
                      BadFile::isSkipped);
    const ExitCode code = Make(table, console, progress);
    if (command.codebook && code != kFailed) {
      ReplaceFile(storage, codebook, Codebook(command.table));
      console.out << Printable(codebook.native())
                  << ": the variables of the table and their values\n";
    }
    return code == kDone ? kDone : kFailed;
  });
}

}  // namespace orvex
