#pragma once

#include <filesystem>
#include <string>

#include "model/program.h"

namespace orvex {

class Storage;

/// True when school, class and observation are numbers that can name files.
bool IsNamed(const Identity& identity);
/// Takes school, class and observation from the name of one of the observation's files,
/// "5-12-3.bak".
void NameAfter(const std::filesystem::path& path, Identity& identity);

/// Replaces each of school, class and observation that is a number that can name files by its value
/// in plain decimal ("007" becomes "7").
void NormaliseNumbers(Identity& identity);
/// Does that to all three, for an observation that must be named. Throws std::invalid_argument,
/// which says which of them is not a number from 0 to 32767; none is changed then.
void NormaliseIdentity(Identity& identity);

/// Create the missing folders for a file of the observation and return its path,
/// `dataPath`/KIND/school/class/school-class-observation.ext. Normalise the three numbers in
/// `identity`. Throw std::invalid_argument for a bad number and FileError for a folder that cannot
/// be made.
std::filesystem::path MakeEpsPath(Storage& storage, const std::filesystem::path& dataPath,
                                  Identity& identity);
std::filesystem::path MakeNtePath(Storage& storage, const std::filesystem::path& dataPath,
                                  Identity& identity);
std::filesystem::path MakeSurPath(Storage& storage, const std::filesystem::path& dataPath,
                                  Identity& identity);

/// The paths of these files for the numbers exactly as `identity` has them; nothing is created.
std::filesystem::path EpsPath(const std::filesystem::path& dataPath, const Identity& identity);
std::filesystem::path NtePath(const std::filesystem::path& dataPath, const Identity& identity);
std::filesystem::path SurPath(const std::filesystem::path& dataPath, const Identity& identity);

/// The path for a survey file that was opened from the main menu:
/// `dataPath`/school-class-observation.sur. Normalises the three numbers in `identity`. Throws
/// std::invalid_argument for a bad number.
std::filesystem::path SurPathInFolder(const std::filesystem::path& dataPath, Identity& identity);

/// The path of the session log, for the numbers exactly as typed. MakeBakFolders creates its
/// folders and throws FileError. It does not wait for the disk: the log syncs the folders along
/// with itself.
std::filesystem::path BakPath(const std::filesystem::path& dataPath, const Identity& identity);
void MakeBakFolders(Storage& storage, const std::filesystem::path& dataPath,
                    const Identity& identity);
/// The data folder that holds the log at `logPath`, or what is kept beside that log.
std::filesystem::path DataFolderOf(const std::filesystem::path& logPath);
/// The folder of the logs of all schools.
std::filesystem::path BakFolder(const std::filesystem::path& dataPath);

}  // namespace orvex
