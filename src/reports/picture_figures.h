#pragma once

#include <vector>

#include "model/episode.h"
#include "reports/class_picture.h"

namespace orvex {

/// What heads the picture of a class; a line without a text is left out.
std::vector<ClassPicture::Heading> PictureHeading(const EpsHeader& header,
                                                  std::optional<int> begin);

/// What stands beneath it: the time by group of activities, the questions, and the means of the
/// off-task estimates. `picture` has its times already.
std::vector<ClassPicture::FigureBlock> PictureFigures(const EpsHeader& header,
                                                      const CodeCounts& counts,
                                                      const ClassPicture& picture);

}  // namespace orvex
