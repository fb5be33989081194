#include "ui/print/PrintedClass.h"

#include <QCoreApplication>
#include <memory>
#include <string>
#include <utility>

#include "desk/prompter.h"
#include "desk/save_file.h"
#include "reports/episode_origin.h"
#include "reports/question_list.h"
#include "reports/question_plot.h"
#include "reports/question_statistics.h"
#include "reports/time_summary.h"
#include "store/durable_file.h"
#include "study/logged_class.h"
#include "ui/print/PrintedClassPage.h"
#include "ui/print/PrintedPlot.h"
#include "ui/print/PrintedQuestions.h"
#include "ui/print/PrintedStatistics.h"
#include "ui/print/PrintedTimeSummary.h"
#include "ui/print/ReportPrinter.h"
#include "ui/text.h"

namespace orvex {
namespace {

QString Tr(const char* text) {
  return QCoreApplication::translate("PrintedClass", text);
}

PrintedParts PartsOf(const LoggedClass& printed) {
  const auto& [header, episodes] = printed.observation;
  const ClassPage page(printed.Picture());
  const ClassPicture& picture = page.Picture();
  PrintedParts parts;
  const auto add = [&parts](auto report) {
    parts.push_back(std::make_unique<decltype(report)>(std::move(report)));
  };
  add(PrintedClassPage(page, page.Whole()));
  add(PrintedTimeSummary(MakeTimeSummary(header, episodes)));
  int number = 0;
  for (const Episode& episode : episodes) {
    ++number;
    if (episode.questions.empty()) continue;
    const EpisodeOrigin origin = OriginOf(header, episode);
    add(PrintedStatistics(MakeQuestionStatistics(header.identity, number, episode), origin));
    add(PrintedPlot(MakeQuestionPlot(header.identity, number, episode), origin));
  }
  add(PrintedStatistics(MakeQuestionStatistics({&printed.observation, 1}),
                        OriginOf({&printed.observation, 1})));
  const QuestionList questions = MakeQuestionList(episodes, picture);
  if (!questions.rows.empty()) {
    add(PrintedQuestions(questions, ToQt(picture.title),
                         ToQt(DateText(header) + "      " + ObserverText(header))));
  }
  return parts;
}

}  // namespace

QByteArray ClassPdf(const LoggedClass& printed) {
  return PdfOf(ToQt(printed.Picture().title), PartsOf(printed));
}

void SaveClassPdf(const LoggedClass& printed, const std::filesystem::path& file,
                  const Printing& printing) {
  const std::string filter = FromQt(Tr("PDF files (*.PDF)|*.PDF"));
  const std::filesystem::path path =
      printing.prompter
          .AskSaveFile({.folder = file.parent_path(),
                        .filter = filter,
                        .defaultName = file.stem().string() + ".pdf"})
          .path;
  if (path.empty()) return;
  const std::string bytes = ClassPdf(printed).toStdString();
  SaveFile(
      printing.prompter,
      {.failure = FromQt(Tr("The PDF file could not be written.")), .path = path, .filter = filter},
      [&](const std::filesystem::path& to) { ReplaceFile(printing.storage, to, bytes); });
}

}  // namespace orvex
