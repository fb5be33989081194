#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orvex {

/// What an entry of a folder is. A link to a file counts as a file; a link to a folder is `other`.
enum class EntryKind { file, folder, other };

/// Calls `act` for the entries of `folder`, in no order, until it returns false. Returns 0, or the
/// `errno` of why the folder could not be read to its end.
int ForEachEntry(const std::string& folder,
                 const std::function<bool(std::string_view name, EntryKind kind)>& act);

}  // namespace orvex
