#include "app/picture_command.h"

#include <QByteArray>
#include <QString>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "app/painted_files.h"
#include "commands/named_sources.h"
#include "store/text_encoding.h"
#include "study/logged_class.h"
#include "ui/picture/ClassPage.h"
#include "ui/picture/PictureFile.h"
#include "ui/picture/StudyFile.h"
#include "ui/picture/StudyPage.h"
#include "ui/text.h"

namespace orvex {
namespace {

QByteArray PictureOf(const LoggedClass& shown, PictureFormat format) {
  const ClassPage page(shown.Picture());
  const auto paint = [&page](QPainter& painter, const PictureSheet& sheet) {
    page.Paint(painter, sheet.area, sheet.font, sheet.palette, page.Whole());
  };
  return PictureFile(ToQt(page.Picture().title), paint, format);
}

/// "Spring" for "data/Spring/" and for "." in there.
std::filesystem::path NameOfFolder(const std::filesystem::path& folder) {
  std::error_code unknown;
  return std::filesystem::canonical(folder, unknown).filename();
}

/// Stores the pages of a study, in one file where the format can hold them all.
bool StorePages(const StudyPage& study, PictureFormat format, const PaintedFiles& files,
                const Console& console) {
  const std::vector<PaintPage> pages = PaintedPages(study);
  const std::string name = "study";
  const QString title = QString::fromStdString(name);
  if (format == PictureFormat::pdf) return files.Store(name, PdfFile(title, pages), console);
  bool isWhole = true;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const std::string number = pages.size() > 1 ? "-" + std::to_string(i + 1) : "";
    isWhole &= files.Store(name + number, PictureFile(title, pages[i], format), console);
  }
  return isWhole;
}

bool PaintStudy(const PictureCommand& command, const FileList& list, const PaintedFiles& files,
                const Console& console) {
  const auto work = [&](const ListedFile& file, const Console& kept) -> std::optional<PictureRow> {
    if (IsInterrupted(console)) return std::nullopt;
    const auto read = files.Read(file, kept);
    return read ? std::optional(MakePictureRow(*read)) : std::nullopt;
  };
  std::vector<PictureRow> rows;
  WorkOnFiles(list, console, work, [&](std::optional<PictureRow> row) {
    if (row) rows.push_back(*std::move(row));
  });
  if (rows.empty() || IsInterrupted(console)) return false;
  const bool isWhole = rows.size() == list.files.size();
  const Source& source = list.sources.front();
  const bool isFolder = list.sources.size() == 1 && source.kind == Source::Kind::folder;
  const std::filesystem::path folder = isFolder ? NameOfFolder(source.path) : "";
  const StudyPage page(MakeStudyPicture(std::move(rows), command.order),
                       ToQt(Decode(folder.string()).text));
  return StorePages(page, command.format, files, console) && isWhole;
}

}  // namespace

ExitCode RunPicture(const PictureCommand& command, Storage& storage, const Console& console) {
  return MakeOfEpisodeFiles(command.sources, console, [&](const FileList& list) {
    const PaintedFiles files(command.output, SchemeOf(command.format).id, list, storage);
    if (command.study) return PaintStudy(command, list, files, console);
    return files.StoreEach(
        [&](const LoggedClass& shown) { return PictureOf(shown, command.format); }, console);
  });
}

}  // namespace orvex
