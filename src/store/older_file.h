#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvex {

class Storage;

/// The name that a file gets when another takes its place: its own with the time of its last
/// change, "5-12-3 2026-03-02 0945.eps"; with a number behind that while such a name is taken.
std::string OlderName(const std::filesystem::path& path);

/// Where the class as it was observed is kept beside the episode file that its edits are saved in:
/// "5-12-3.eps.observed".
std::filesystem::path ObservedPath(std::filesystem::path file);

/// Renames the regular file at `path`, if there is one, to its OlderName beside it, and with it
/// what is at its ObservedPath. Returns the new name; "" when there is no file. Throws FileError;
/// the file then has the name it had. That the name reaches the disk is left to whoever puts
/// another file there.
std::string KeepOlder(Storage& storage, const std::filesystem::path& path);

/// Replaces a file as ReplaceFile does. What is there and not its `own` is kept beside it: the
/// result is the name that it got, or "". When it fails, the older file has its place again, or
/// else its new name.
std::string ReplaceOwn(Storage& storage, const std::filesystem::path& path, std::string_view bytes,
                       bool own);

}  // namespace orvex
