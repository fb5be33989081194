#include "app/report_pdf_command.h"

#include "app/painted_files.h"
#include "ui/print/PrintedClass.h"

namespace orvex {

ExitCode RunReportPdf(const ReportPdfCommand& command, Storage& storage, const Console& console) {
  return MakeOfEpisodeFiles(command.sources, console, [&](const FileList& list) {
    return PaintedFiles(command.output, "pdf", list, storage).StoreEach(ClassPdf, console);
  });
}

}  // namespace orvex
