#pragma once

#include <cstdint>
#include <string>

namespace orvex {

/// What tells one state of a file from another without reading it.
struct FileStamp {
  std::uint64_t file = 0;  ///< which file it is; 0 when there is none, or none that can be seen
  std::int64_t size = 0;
  std::int64_t changed = 0;  ///< when it was last changed, in nanoseconds since 1970

  bool operator==(const FileStamp&) const = default;
};

/// The stamp of the file at `path`; an initial one for an empty path.
FileStamp StampOf(const std::string& path);

}  // namespace orvex
