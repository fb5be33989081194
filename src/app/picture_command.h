#pragma once

#include <filesystem>
#include <vector>

#include "commands/console.h"
#include "study/study_picture.h"
#include "ui/picture/PictureFormat.h"

namespace orvex {

class Storage;

/// `orvex picture`: a page for each class, or many classes on a page.
struct PictureCommand {
  std::vector<std::filesystem::path> sources = {};  ///< folders, lists, files, "-"
  std::filesystem::path output = {};                ///< a folder; empty for the current one
  PictureFormat format = PictureFormat::svg;
  bool study = false;               ///< one picture of all classes
  RowOrder order = RowOrder::name;  ///< of the classes in it
};

/// Makes the pictures, "5-12-3.svg" or "study.svg", which replace earlier ones, and writes their
/// names to `console.out`. What could not be read or written is told on `console.err`. kFailed when
/// something is missing. Needs a QGuiApplication.
ExitCode RunPicture(const PictureCommand& command, Storage& storage, const Console& console);

}  // namespace orvex
