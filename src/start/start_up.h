#pragma once

#include <filesystem>

#include "desk/services.h"
#include "model/program.h"

namespace orvex {

/// Where the program lives, and where it may keep files of its own.
struct Installation {
  std::filesystem::path executableFolder;
  bool executableFolderWritable = false;
  std::filesystem::path userFolder;  ///< the user's own data folder for Orvex; need not exist yet
};

/// The folder of the options file, which is also the data folder until another is chosen: the
/// executable's folder or, where that cannot be written, the user's, which is created.
std::filesystem::path ProgramFolder(Storage& storage, const Installation& installation);

/// Sets the data folder to the one that the options file names, if there is such a folder,
/// otherwise to the program folder. Also marks the class as not ended.
void SettleDataPath(Program& program, const std::filesystem::path& programFolder);

/// Offers all work of any kind that an earlier run of the program left unfinished. Called at
/// start-up once a window is in use, and again when another data folder has been chosen.
void OfferAllUnfinished(const Services& services);

}  // namespace orvex
