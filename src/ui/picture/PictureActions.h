#pragma once

#include <QByteArray>
#include <filesystem>
#include <functional>

#include "ui/picture/PictureFormat.h"

namespace orvex {

struct Printing;

/// Makes a picture's file in a format.
using MakePictureFile = std::function<QByteArray(PictureFormat)>;

/// Puts a picture on the clipboard, as pixels and as SVG.
void CopyPicture(const MakePictureFile& make);

/// Lets the user choose where to save a picture, and in which format by the ending of its name.
/// `suggested` is a file without an ending. The user is told when saving fails, and can have it
/// tried again or choose another place.
void SavePicture(const MakePictureFile& make, const std::filesystem::path& suggested,
                 const Printing& printing);

}  // namespace orvex
