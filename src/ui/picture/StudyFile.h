#pragma once

#include <vector>

#include "ui/picture/PictureFile.h"

namespace orvex {

class StudyPage;

/// The pages of a study, to be painted on sheets. They refer to `study`.
std::vector<PaintPage> PaintedPages(const StudyPage& study);

}  // namespace orvex
