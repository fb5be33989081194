#include "export/table_command.h"

#include <string>
#include <utility>

#include "export/table_export.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/storage.h"

namespace orvex {
namespace {

/// "12 of 300 files" on one line of the terminal, which it leaves empty.
class Progress {
 public:
  explicit Progress(const Console& console) : console_(console) {}
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Show(std::size_t done, std::size_t count) {
    constexpr std::size_t kSteps = 200;  // a terminal is slower than the work
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

struct Outcome {
  std::size_t bad = 0;
  bool whole = false;  ///< the last file of the list was reached
};

Outcome Make(TableExport& table, const Console& console, Progress& progress) {
  Outcome outcome;
  while (!table.Finished() && !(console.interrupted && console.interrupted())) {
    progress.Show(table.Done(), table.Count());
    if (const auto problem = table.Step()) {
      progress.Clear();
      console.err << problem->Text() << "\n";
      ++outcome.bad;
    }
  }
  progress.Clear();
  table.Commit();
  outcome.whole = table.Done() == table.Count();
  console.out << table.Table().string() << ": " << Counted(table.Rows(), "row") << " from "
              << Counted(table.Done() - outcome.bad, "file") << "\n";
  if (!outcome.whole) {
    console.err << "The table ends before the end of the list: " << table.Done() << " of "
                << Counted(table.Count(), "file") << " done.\n";
  }
  return outcome;
}

/// Runs `command`; a file that cannot be read or written ends it.
template <typename Command>
ExitCode OrFailed(const Console& console, Command command) {
  try {
    return command();
  } catch (const FileError& error) {
    console.err << error.what() << "\n";
    return kFailed;
  }
}

}  // namespace

ExitCode RunExport(const ExportCommand& command, Storage& storage, const Console& console) {
  return OrFailed(console, [&] {
    Progress progress(console);
    const auto warnOf = [&](const std::filesystem::path& file, const std::string& warning) {
      progress.Clear();
      console.err << file.string() << ": warning: " << warning << "\n";
    };
    const TableKind kind = command.kind == ExportKind::epsData ? EpsData(warnOf) : SurData();
    TableExport table(storage, kind, ReadFileList(command.list),
                      TableFolder(command.list, command.output) / kind.fileName,
                      command.keepGoing ? BadFile::isSkipped : BadFile::endsTheTable);
    const Outcome outcome = Make(table, console, progress);
    if (!outcome.whole) return kFailed;
    if (outcome.bad == 0) return kDone;
    return command.keepGoing ? kFound : kFailed;
  });
}

ExitCode RunTable(const TableCommand& command, Storage& storage, const Console& console) {
  return OrFailed(console, [&] {
    Progress progress(console);
    const auto warnOf = [&](const std::filesystem::path& file, const std::string& warning) {
      progress.Clear();
      console.err << file.string() << ": warning: " << warning << "\n";
    };
    const std::filesystem::path folder = TableFolder(command.list, command.output);
    const TableKind kind = TidyTableKind(command.table, warnOf);
    TableExport table(storage, kind, ReadFileList(command.list), folder / kind.fileName,
                      BadFile::isSkipped);
    const Outcome outcome = Make(table, console, progress);
    if (command.codebook) {
      const std::filesystem::path codebook = folder / CodebookFileName(command.table);
      ReplaceFile(storage, codebook, Codebook(command.table));
      console.out << codebook.string() << ": the variables of the table and their values\n";
    }
    return outcome.whole && outcome.bad == 0 ? kDone : kFailed;
  });
}

}  // namespace orvex
