#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "commands/console.h"
#include "study/logged_class.h"
#include "tables/file_list.h"

class QByteArray;

namespace orvex {

class Storage;

/// Makes files that are painted from classes. What cannot be read or written is told.
class PaintedFiles {
 public:
  /// The files go into `output`, a folder, which is empty for the current one, and end with
  /// `ending`: "svg". `list` has the episode files.
  PaintedFiles(const std::filesystem::path& output, std::string_view ending, const FileList& list,
               Storage& storage)
      : output_(output), ending_(ending), list_(list), storage_(storage) {}

  std::optional<LoggedClass> Read(const ListedFile& file, const Console& console) const;
  /// Stores `name` and the ending, and writes its path to `console.out`. False when that fails.
  bool Store(const std::string& name, const QByteArray& bytes, const Console& console) const;
  /// Makes a file of each class, which is called as its episode file is. `paint` is called in
  /// several threads. False when one is missing.
  bool StoreEach(const std::function<QByteArray(const LoggedClass&)>& paint,
                 const Console& console) const;

 private:
  const std::filesystem::path& output_;
  std::string_view ending_;
  const FileList& list_;
  Storage& storage_;
};

/// Finds the episode files that the command line names, and calls `make`, which returns false when
/// something is missing.
ExitCode MakeOfEpisodeFiles(const std::vector<std::filesystem::path>& sources,
                            const Console& console,
                            const std::function<bool(const FileList& list)>& make);

/// True once the user wants to stop.
bool IsInterrupted(const Console& console);

}  // namespace orvex
