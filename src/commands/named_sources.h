#pragma once

#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "commands/console.h"
#include "study/ordered_reading.h"
#include "tables/file_list.h"

namespace orvex {

/// Reads what the command line names: folders, lists, files, and "-" for a list on `console.in`.
/// Nothing when a source could not be read, or the user wants to stop; `console.err` then says why.
/// It also names the folders in sources that could not be read.
std::optional<FileList> ReadSources(const std::vector<std::filesystem::path>& sources,
                                    const Console& console);

/// False when a folder has no file in `list`; `console.err` then says that one was expected:
/// "episode file (.eps)".
bool HasFiles(const FileList& list, const std::string& expected, const Console& console);

/// Calls `work` for every file of `list`, on all cores, with a console that keeps what is written.
/// Then, in the files' order, writes what was kept and calls `take` with what `work` returned.
template <typename Work, typename Take>
void WorkOnFiles(const FileList& list, const Console& console, const Work& work, const Take& take) {
  using Result = std::invoke_result_t<Work, const ListedFile&, const Console&>;
  struct Done {
    std::string out;
    std::string err;
    Result result;
  };
  OrderedReading<Done> reading(list.files.size(), [&](std::size_t file) {
    std::ostringstream out;
    std::ostringstream err;
    Result result = work(list.files[file], Console{.out = out, .err = err, .interrupted = {}});
    return Done{out.str(), err.str(), std::move(result)};
  });
  while (auto done = reading.Take()) {
    console.err << done->err;
    console.out << done->out;
    take(std::move(done->result));
  }
}

}  // namespace orvex
