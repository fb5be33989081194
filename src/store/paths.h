#pragma once

#include <filesystem>
#include <string>

#include "model/program.h"

namespace orvex {

class Storage;

/// True when school, class and observation are numbers that can name files.
bool IsNamed(const Identity& identity);
/// Takes the three from the name of a file of the observation, "5-12-3.bak".
void NameAfter(const std::filesystem::path& path, Identity& identity);

/// Replaces school, class and observation, where they are numbers that can name files, by the
/// decimal texts of their values ("007" becomes "7").
void NormaliseNumbers(Identity& identity);
/// The same for an observation that must be named. Throws std::invalid_argument, which says which
/// number is none, and changes nothing then.
void NormaliseIdentity(Identity& identity);

/// Make the folders of an observation's files, where they do not exist, and return the file's path,
/// `dataPath`/KIND/school/class/school-class-observation.ext. The three numbers are normalised in
/// place. Throw std::invalid_argument for a number and FileError for a folder.
std::filesystem::path MakeEpsPath(Storage& storage, const std::filesystem::path& dataPath,
                                  Identity& identity);
std::filesystem::path MakeNtePath(Storage& storage, const std::filesystem::path& dataPath,
                                  Identity& identity);
std::filesystem::path MakeSurPath(Storage& storage, const std::filesystem::path& dataPath,
                                  Identity& identity);

/// Where the files of `identity` would be, as it stands; nothing is created.
std::filesystem::path EpsPath(const std::filesystem::path& dataPath, const Identity& identity);
std::filesystem::path NtePath(const std::filesystem::path& dataPath, const Identity& identity);
std::filesystem::path SurPath(const std::filesystem::path& dataPath, const Identity& identity);

/// The path of a survey file that was opened from the main menu:
/// `dataPath`/school-class-observation.sur, the three numbers normalised in place.
std::filesystem::path SurPathInFolder(const std::filesystem::path& dataPath, Identity& identity);

/// The session log's path, the numbers as they are typed. MakeBakFolders creates its folders and
/// throws FileError; nothing waits for the disk: that they are there is brought to it with the log.
std::filesystem::path BakPath(const std::filesystem::path& dataPath, const Identity& identity);
void MakeBakFolders(Storage& storage, const std::filesystem::path& dataPath,
                    const Identity& identity);
/// The data folder that a log, or what is kept beside it, lies in.
std::filesystem::path DataFolderOf(const std::filesystem::path& logPath);
/// The folder of the logs of all schools.
std::filesystem::path BakFolder(const std::filesystem::path& dataPath);

}  // namespace orvex
