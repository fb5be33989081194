#pragma once

#include <filesystem>

#include "desk/services.h"
#include "model/program.h"

namespace orvex {

/// Where the program lives: the executable's folder, if it can be written.
struct Installation {
  std::filesystem::path executableFolder;
  bool executableFolderWritable = false;
  std::filesystem::path userFolder;  ///< the user's own data folder for Orvex; need not exist yet
};

/// The folder of the options file, and the data folder as long as no other is chosen: the
/// executable's folder or, where that cannot be written, the user's, which is made.
std::filesystem::path ProgramFolder(Storage& storage, const Installation& installation);

/// Settles the data folder: the one the options file names where there is such a folder, otherwise
/// the program folder. No class has been ended yet.
void SettleDataPath(Program& program, const std::filesystem::path& programFolder);

/// Offers all work that an earlier run of the program left unfinished, of whatever kind it is: once
/// a window is in use at start-up, and when another data folder has been chosen.
void OfferAllUnfinished(const Services& services);

}  // namespace orvex
