#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvex {

class Storage;

/// The name that the file at `path` gets when another takes its place: its own with the time of its
/// last change, "5-12-3 2026-03-02 0945.eps", and a number after that if the name is taken.
std::string OlderName(const std::filesystem::path& path);

/// What a file was called, without its extension, before it got an OlderName: "5-12-3" for
/// "5-12-3 2026-03-02 0945". Empty for any other name.
std::string NameBeforeOlder(std::string_view stem);

/// Where the class as observed is kept beside the episode file that its edits are saved in:
/// "5-12-3.eps.observed".
std::filesystem::path ObservedPath(std::filesystem::path file);

/// Renames the regular file at `path`, if there is one, to its OlderName in the same folder,
/// together with the file at its ObservedPath. Returns the new name, or "" when there is no file.
/// Throws FileError; the file then has the name it had. Does not bring the new name to the disk:
/// that is up to the caller, who puts another file there.
std::string KeepOlder(Storage& storage, const std::filesystem::path& path);

/// Replaces a file as ReplaceFile does. Unless the file there is the caller's `own`, it is kept
/// beside the new one, and its new name is returned; otherwise the result is "". On failure the
/// older file is back in its place or, if that is not possible either, keeps its new name.
std::string ReplaceOwn(Storage& storage, const std::filesystem::path& path, std::string_view bytes,
                       bool own);

}  // namespace orvex
