#include "app/picture_command.h"

#include <QByteArray>
#include <QString>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "commands/named_file.h"
#include "commands/named_sources.h"
#include "store/durable_file.h"
#include "store/printable_text.h"
#include "study/file_kind.h"
#include "study/logged_class.h"
#include "study/problem.h"
#include "tables/table_export.h"
#include "ui/picture/ClassPage.h"
#include "ui/picture/PictureFile.h"
#include "ui/picture/StudyPage.h"
#include "ui/text.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// What the pictures are made from, and where they go.
struct Making {
  const PictureCommand& command;
  const FileList& list;
  Storage& storage;
};

bool IsInterrupted(const Console& console) {
  return console.interrupted && console.interrupted();
}

std::optional<LoggedClass> ReadClass(const ListedFile& file, const FileList& list,
                                     const Console& console) {
  const fs::path path = PathOf(file, FileKind::episodes);
  const std::string place = PlaceOf(file, list);
  std::optional<LoggedClass> read;
  const auto problem = ProblemOf(path, [&] {
    read = ReadLoggedClass(
        path, [&](const std::string& text) { Tell(Warning(path, 0, text), place, console); });
  });
  if (problem) Tell(*problem, place, console);
  return read;
}

/// Stores a picture. `name` is without the ending. False, and told, when that fails.
bool Store(const std::string& name, const QByteArray& bytes, const Making& making,
           const Console& console) {
  const std::string ending(SchemeOf(making.command.format).id);
  const fs::path path = making.command.output / (name + "." + ending);
  const auto problem = ProblemOf(path, [&] {
    RequireNoSource(path, making.list);
    ReplaceFile(making.storage, path, bytes.toStdString());
  });
  if (problem) {
    Tell(*problem, "", console);
    return false;
  }
  console.out << Printable(path.native()) << "\n";
  return true;
}

std::string NameOfPicture(const ListedFile& file) {
  return PathOf(file, FileKind::episodes).stem().string();
}

/// The files whose picture would take the place of an earlier file's.
std::set<const ListedFile*> FilesOfEqualName(const FileList& list) {
  std::set<std::string> names;
  std::set<const ListedFile*> files;
  for (const ListedFile& file : list.files) {
    if (!names.insert(NameOfPicture(file)).second) files.insert(&file);
  }
  return files;
}

bool PaintClass(const ListedFile& file, const Making& making, const Console& console) {
  const auto read = ReadClass(file, making.list, console);
  if (!read) return false;
  const ClassPage page(read->Picture());
  const auto paint = [&page](QPainter& painter, const PictureSheet& sheet) {
    page.Paint(painter, sheet.area, sheet.font, sheet.palette, page.Whole());
  };
  const QString title = ToQt(page.Picture().title);
  return Store(NameOfPicture(file), PictureFile(title, paint, making.command.format), making,
               console);
}

bool PaintClasses(const Making& making, const Console& console) {
  const auto ofEqualName = FilesOfEqualName(making.list);
  const auto work = [&](const ListedFile& file, const Console& kept) {
    if (IsInterrupted(console)) return false;
    if (ofEqualName.contains(&file)) {
      const Problem problem = {PathOf(file, FileKind::episodes), 0,
                               "an earlier file has this name, and its picture too"};
      Tell(problem, PlaceOf(file, making.list), kept);
      return false;
    }
    return PaintClass(file, making, kept);
  };
  bool isWhole = true;
  WorkOnFiles(making.list, console, work, [&](bool isPainted) { isWhole &= isPainted; });
  return isWhole;
}

/// Stores the pages of a study, in one file where the format can hold them all.
bool StorePages(const StudyPage& study, const Making& making, const Console& console) {
  const std::string name = "study";
  const PictureFormat format = making.command.format;
  const PictureSheet sheet;
  const int count = study.Pages(sheet.area, sheet.font);
  std::vector<PaintPage> pages;
  for (int page = 0; page < count; ++page) {
    pages.emplace_back([&study, page](QPainter& painter, const PictureSheet& on) {
      study.Paint(painter, on.area, on.font, on.palette, page);
    });
  }
  const QString title = QString::fromStdString(name);
  if (format == PictureFormat::pdf) return Store(name, PdfFile(title, pages), making, console);
  bool isWhole = true;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const std::string number = count > 1 ? "-" + std::to_string(i + 1) : "";
    isWhole &= Store(name + number, PictureFile(title, pages[i], format), making, console);
  }
  return isWhole;
}

bool PaintStudy(const Making& making, const Console& console) {
  const auto work = [&](const ListedFile& file, const Console& kept) -> std::optional<PictureRow> {
    if (IsInterrupted(console)) return std::nullopt;
    const auto read = ReadClass(file, making.list, kept);
    return read ? std::optional(MakePictureRow(*read)) : std::nullopt;
  };
  std::vector<PictureRow> rows;
  WorkOnFiles(making.list, console, work, [&](std::optional<PictureRow> row) {
    if (row) rows.push_back(*std::move(row));
  });
  if (rows.empty() || IsInterrupted(console)) return false;
  const bool isWhole = rows.size() == making.list.files.size();
  const StudyPage page(MakeStudyPicture(std::move(rows), making.command.order));
  return StorePages(page, making, console) && isWhole;
}

}  // namespace

ExitCode RunPicture(const PictureCommand& command, Storage& storage, const Console& console) {
  auto sources = ReadSources(command.sources, console);
  if (!sources) return kFailed;
  const FileList list = FilesOf(FileKind::episodes, *std::move(sources));
  if (!HasFiles(list, WordsFor(FileKind::episodes), console)) return kFailed;
  const Making making = {command, list, storage};
  const bool isWhole = command.study ? PaintStudy(making, console) : PaintClasses(making, console);
  if (IsInterrupted(console)) console.err << "Interrupted. Not all pictures were made.\n";
  return isWhole && list.unread.empty() ? kDone : kFailed;
}

}  // namespace orvex
