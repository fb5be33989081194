#include "reports/question_plot.h"

#include <algorithm>
#include <vector>

#include "model/texts.h"
#include "reports/episode_origin.h"

namespace orvex {
namespace {

constexpr std::string_view kFull = "\u2588";
constexpr std::string_view kLight = "\u2591";
constexpr std::string_view kCorner = "\u255A";

constexpr std::size_t kCodeRows = 16;
constexpr std::size_t kSpellRow = 16;

constexpr std::array<std::string_view, kCodeRows> kMarks = {
    kFull,  kLight, kFull,  kLight, kCorner, kFull,   kLight, kFull,
    kLight, kFull,  kLight, kFull,  kLight,  kCorner, kFull,  kLight,
};

bool IsMarked(std::size_t row, const questionInfo& question) {
  switch (row) {
    case 0:
      return question.strCogLev() == "H";
    case 1:
      return question.strCogLev() == "R";
    case 2:
      return question.strUptake() == "A";
    case 3:
      return question.strUptake() == "T";
    case 4:
      return question.strUptake() == "N";
    case 5:
      return question.strAuth() == "A" && question.strSrc() == "T";
    case 6:
      return question.strAuth() == "N";
    case 7:
      return question.strSrc() == "S";
    case 8:
      return question.strSrc() == "T";
    case 9:
      return question.strElab() == "E";
    case 10:
      return question.strRspns() == "N" && !IsMarked(9, question);
    case 11:
      return question.strTResp() == "O";
    case 12:
      return question.strTResp() == "A";
    case 13:
      return question.strTResp() == "C";
    case 14:
      return question.strPFMany() == "Y";
    default:
      return question.strPFMany() == "N";
  }
}

/// Draws each spell as underscores beneath its questions, with a bar on either side. A spell
/// that begins with the second question has no room for its first bar, and gets no blank in its
/// place.
std::string SpellRow(const std::vector<DialogicSpell>& spells) {
  std::string row;
  int last = 0;
  const auto upTo = [&row, &last](int column, char fill) {
    const int count = column - 1 - last;
    if (count > 0) row.append(static_cast<std::size_t>(count), fill).push_back('|');
    last = column;
  };
  for (const DialogicSpell& spell : spells) {
    upTo(spell.first - 1, ' ');
    upTo(spell.last + 1, '_');
  }
  return row;
}

/// The heading of the group that begins with `row`; empty when none does.
std::string_view HeadingAt(std::size_t row) {
  const auto group = std::ranges::find(kPlotGroups, row, &PlotGroup::first);
  return group == kPlotGroups.end() ? "" : group->heading;
}

}  // namespace

const std::array<PlotRowMeaning, kPlotRows> kPlotRowMeanings = {{
    {"H", "higher-level question"},
    {"R", "report"},
    {"A", "authentic uptake"},
    {"T", "test uptake"},
    {"N", "no uptake"},
    {"A", "authentic teacher question"},
    {"N", "not authentic"},
    {"S", "asked by a student"},
    {"T", "asked by the teacher"},
    {"E", "elaborated"},
    {"N", "no response"},
    {"O", "opening up"},
    {"A", "answering"},
    {"C", "closing down"},
    {"Y", "related to previous responses"},
    {"N", "not related to previous responses"},
    {"", "dialogic spells"},
    {"", "the question's number, its last digit"},
}};

const std::array<PlotGroup, 10> kPlotGroups = {{
    {"Coglev", 0, 2, true},
    {"Uptake", 2, 3, true},
    {"AuthTQ", 5, 2, true},
    {"Source", 7, 2, true},
    {"Elab", 9, 1, false},
    {"RESPONSE", 10, 1, true},
    {"Nature", 11, 3, true},
    {"Relation to Prev Q", 14, 2, true},
    {"Dlgspell", 16, 1, true},
    {"QUESTIONS", 17, 1, false},
}};

QuestionPlot MakeQuestionPlot(const Identity& identity, int number, const Episode& episode) {
  QuestionPlot plot;
  plot.title = EpisodeTitle(identity, number);
  plot.questions = episode.nQAs();
  plot.totalText = Say(Text::plotTotal, {plot.questions});
  std::string& spells = plot.PlotRows[kSpellRow];
  spells = SpellRow(FindDialogicSpells(episode.questions));
  plot.columns = std::max(plot.questions, static_cast<int>(spells.size()));
  int i = 0;
  for (const questionInfo& question : episode.questions) {
    ++i;
    for (std::size_t row = 0; row < kCodeRows; ++row) {
      plot.PlotRows[row] += IsMarked(row, question) ? kMarks[row] : " ";
    }
    plot.PlotRows[kRulerRow] += std::to_string(i % 10);
  }
  return plot;
}

std::string TensRow(int questions) {
  constexpr int kTens = 10;
  std::string row;
  for (int number = kTens; number <= questions; number += kTens) {
    const std::string digits = std::to_string(number);
    row.append(kTens - digits.size(), ' ').append(digits);
  }
  return row;
}

std::string TextOf(const QuestionPlot& plot) {
  const std::size_t width = std::ranges::max(kPlotGroups, {}, [](const PlotGroup& group) {
                              return group.heading.size();
                            }).heading.size();
  std::string text = "QPLOT\t" + plot.title + "\n" + plot.totalText + "\n\n";
  for (std::size_t row = 0; row < kPlotRows; ++row) {
    std::string heading(HeadingAt(row));
    heading.resize(width, ' ');
    text.append(heading).append("\t").append(kPlotRowMeanings[row].letter);
    text.append("\t").append(plot.PlotRows[row]).append("\n");
  }
  return text;
}

}  // namespace orvex
