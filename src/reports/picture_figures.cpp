#include "reports/picture_figures.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "model/texts.h"
#include "model/wording.h"
#include "reports/time_axis.h"
#include "store/numbers.h"

namespace orvex {
namespace {

using Figure = ClassPicture::Figure;
using FigureBlock = ClassPicture::FigureBlock;

std::string PercentDigits(double share, const char* pattern) {
  constexpr double kPercent = 100;
  return FormatPattern(kPercent * share, pattern);
}

/// "21:35 (48 %)"; without the share where there is no whole.
std::string PartText(const std::string& part, double share) {
  return std::isfinite(share) ? Say(Text::partOf, {part, PercentDigits(share, "0")}) : part;
}

FigureBlock TimeFigures(const ClassPicture& picture) {
  FigureBlock block = {Say(Text::timeFigures), {}};
  const auto add = [&](std::string_view caption, double seconds) {
    block.figures.push_back(
        {std::string(caption), PartText(FormatMinSec(seconds), seconds / picture.seconds)});
  };
  for (std::size_t i = 0; i < kActivityGroupCount; ++i) {
    add(kActivityGroups[i].label, picture.groupSeconds[i]);
  }
  const double known = std::reduce(picture.groupSeconds.begin(), picture.groupSeconds.end());
  if (picture.seconds - known >= 1) add(Say(Text::otherActivities), picture.seconds - known);
  block.figures.push_back({Say(Text::wholeTime), FormatMinSec(picture.seconds)});
  return block;
}

FigureBlock QuestionFigures(const CodeCounts& counts, double seconds) {
  FigureBlock block = {Say(Text::questionFigures), {}};
  const auto add = [&](Text caption, int count, int whole) {
    block.figures.push_back(
        {Say(caption), PartText(std::to_string(count), static_cast<double>(count) / whole)});
  };
  block.figures.push_back({Say(Text::allQuestions), std::to_string(counts.Total)});
  if (counts.Total == 0) return block;
  add(Text::teacherQuestions, counts.TeacherQ, counts.Total);
  add(Text::studentQuestions, counts.StudentQ, counts.Total);
  add(Text::authenticQuestions, counts.AuthTeacher + counts.AuthStudent, counts.Total);
  add(Text::uptakeQuestions, counts.UptakeTest + counts.UptakeAuthentic, counts.Responded);
  add(Text::higherLevelQuestions, counts.HigherLevel, counts.TeacherQ);
  add(Text::unansweredQuestions, counts.NoResponse, counts.TeacherQ);
  if (const auto pace = QuestionsPerMinute(counts.Total, seconds)) {
    block.figures.push_back({Say(Text::questionsPerMinute), FormatPattern(*pace, "0.0#")});
  }
  return block;
}

/// The file has 0 where there were no estimates.
FigureBlock OfftaskFigures(const OfftaskAverages& averages) {
  FigureBlock block = {Say(Text::offtaskFigures), {}};
  for (const Activity& activity : kActivities) {
    const auto position = OfftaskPosition(activity.number);
    if (!position || averages[*position] == 0) continue;
    block.figures.push_back(
        {std::string(activity.name),
         Say(Text::percent, {PercentDigits(static_cast<double>(averages[*position]), "0.0")})});
  }
  return block;
}

}  // namespace

std::vector<ClassPicture::Heading> PictureHeading(const EpsHeader& header,
                                                  std::optional<int> begin) {
  const Identity& identity = header.identity;
  std::vector<ClassPicture::Heading> heading = {
      {Say(Text::schoolCaption), identity.SchoolNum},
      {Say(Text::classCaption), identity.ClassNum},
      {Say(Text::observationCaption), identity.ObservNum},
      {Say(Text::dateCaption), header.ObservDate},
      {Say(Text::beginCaption), begin ? ClockText(*begin) : ""},
      {Say(Text::observerCaption), identity.Initials},
      {Say(Text::studentsCaption), identity.NumStudents},
  };
  std::erase_if(heading, [](const ClassPicture::Heading& line) { return line.text.empty(); });
  return heading;
}

std::vector<FigureBlock> PictureFigures(const EpsHeader& header, const CodeCounts& counts,
                                        const ClassPicture& picture) {
  std::vector<FigureBlock> blocks = {TimeFigures(picture), QuestionFigures(counts, picture.seconds),
                                     OfftaskFigures(header.ActivityOfftask)};
  std::erase_if(blocks, [](const FigureBlock& block) { return block.figures.empty(); });
  return blocks;
}

}  // namespace orvex
